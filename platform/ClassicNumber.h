#pragma once

#include <string>

namespace classic {

/// The number at the start of a text, read as the C library's `atof` reads it in the "C" locale, whatever the locale of
/// the process: blanks before it and anything behind it are ignored, hexadecimal, "inf" and "nan" are numbers; 0 when
/// there is none, infinity when it is too large.
double toDouble(const std::string& text);

}  // namespace classic
