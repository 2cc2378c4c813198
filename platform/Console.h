#pragma once

#include <ostream>

/// The two console streams. Every line that the library prints goes through here.
namespace console {

/// Standard output, in whatever number format the evaluations left it.
std::ostream& out();

/// Standard error, unbuffered: failures of the image list and of the detection.
std::ostream& err();

/// One line on standard output, flushed, so that the last line before a failure can be seen.
template <typename... Pieces>
void line(const Pieces&... pieces) {
  (out() << ... << pieces) << std::endl;
}

/// Switches standard output to fixed notation with 8 decimals. Meant: nothing switches it back, not even the end of
/// the exported call.
void useFixedNotation();

}  // namespace console
