#pragma once

#include <ostream>

/// The two console streams. Every line that the library prints goes through here.
namespace console {

/// Standard output, in whatever number format the evaluations left it.
std::ostream& out();

/// Standard error: failures of the image list and of the detection. The stream itself holds nothing back.
std::ostream& err();

/// One line on standard output, flushed: whoever reads along, or looks for the last line before a failure, has it.
template <typename... Pieces>
void line(const Pieces&... pieces) {
  (out() << ... << pieces) << std::endl;
}

/// Switches standard output to fixed notation with 8 decimals. It stays so, also after the call that did it.
void useFixedNotation();

}  // namespace console
