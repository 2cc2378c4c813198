#pragma once

#include <cstddef>
#include <cstdio>

/// What the command may show where.
namespace terminal {

bool isTerminal(std::FILE* stream);

/// Columns of the terminal; 80 where there is none.
std::size_t width(std::FILE* stream);

/// Whether the stream may be coloured: a terminal that is not "dumb", and no NO_COLOR in the environment.
bool hasColours(std::FILE* stream);

}  // namespace terminal
