#pragma once

#include <cstddef>
#include <cstdio>
#include <string>

#include "platform/Printable.h"

/// What the command may show where.
namespace terminal {

/// Standard error for words of ours; `stderr` itself is what decoders of pictures write to.
std::FILE* errors();

/// From here on nothing but ours comes to standard error: decoders write there what a picture lacks, and that is told
/// in words with the picture's name. Call before any thread is started.
void silenceDecoders();

bool isTerminal(std::FILE* stream);

/// Columns of the terminal; 80 where there is none.
std::size_t width(std::FILE* stream);

/// Whether the stream may be coloured: a terminal that is not "dumb", and no NO_COLOR in the environment.
bool hasColours(std::FILE* stream);

/// Whether a line may be drawn anew: a terminal that understands how.
bool canRedraw(std::FILE* stream);

using plain::onOneLine;
using plain::printable;

/// Lines of at most `width` columns, broken at blanks, the later ones moved in; without control characters.
std::string wrapped(const std::string& text, std::size_t width, std::size_t indent);

/// Each line of the text in as many as the width makes of it. They go on where the line's last column begins; where
/// there is no room for that, the last column stands below the others, a little further in.
std::string fitted(const std::string& text, std::size_t width);

}  // namespace terminal
