#pragma once

#include <cstdint>
#include <string>

/// The one thing that survives a call: the text of the last failure, one blank before the first. It is not guarded:
/// calls may not overlap.
namespace error_channel {

const std::string& lastErrorText();

/// Replaces the text; a failure without a text of its own leaves it empty.
void take(std::string text);

/// Takes the text of a failed call over and hands its status on.
std::int32_t fail(std::string text, std::int32_t status);

}  // namespace error_channel

/// Throws `std::logic_error` naming the argument when it is null.
void requireNonNull(const void* pointer, const char* name);
