#pragma once

#include <cstdint>
#include <string>

#include "check/set/InputFile.h"

/// What the readings of all inputs share.
namespace polarline {

/// The whole file. Throws `InputError`.
std::string contentOf(const InputFile& file);

/// Throws `InputError` for a file of more than the readers of the library take, which would end the run without naming
/// it.
void requireLength(const InputFile& file);

/// A text as a message repeats it: in quotes, blanks at its end and what is too long cut off.
std::string shownOf(const std::string& text);

/// Throws `InputError` with line and column where the file's text is no JSON.
void requireJson(const InputFile& file);

/// A status of the library in words, with what to do.
std::string advisedMeaning(std::int32_t status);

}  // namespace polarline
