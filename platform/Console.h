#pragma once

#include <iosfwd>

/// The two console streams. Every line that the library prints goes through here.
namespace console {

/// Standard output, in whatever number format the evaluations left it.
std::ostream& out();

/// Standard error: failures of the image list and of the detection.
std::ostream& err();

/// Switches standard output to fixed notation with 8 decimals. It stays so, also after the call that did it.
void useFixedNotation();

}  // namespace console
