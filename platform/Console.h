#pragma once

#include <ostream>

/// The two console streams. Every line that the library prints goes through here.
namespace console {

/// Standard output, in whatever number format the evaluations left it, or what the calling thread put in its place.
std::ostream& out();

/// Standard error, unbuffered: failures of the image list and of the detection. Or what stands in its place.
std::ostream& err();

/// While it lives, the calling thread's lines go to other streams. They nest.
class Redirection {
 public:
  Redirection(std::ostream& out, std::ostream& err);
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;
  ~Redirection();

 private:
  std::ostream* out_before_;
  std::ostream* err_before_;
};

/// One line on standard output, flushed, so that the last line before a failure can be seen.
template <typename... Pieces>
void line(const Pieces&... pieces) {
  (out() << ... << pieces) << std::endl;
}

/// Switches standard output to fixed notation with 8 decimals. Meant: nothing switches it back, not even the end of
/// the exported call.
void useFixedNotation();

}  // namespace console
