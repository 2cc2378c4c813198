#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <exception>

namespace binding {

/// What Python has to say while the library works: a progress function, Ctrl-C. Exceptions must not pass through the
/// library, which takes them for its own; they are kept, the work is told to end, and `rethrow` raises them as they
/// were.
class CallBack {
 public:
  /// `progress`: a callable, or None.
  explicit CallBack(pybind11::object progress) : progress_(std::move(progress)) {}

  /// Calls the progress function with two numbers.
  void tell(std::size_t done, std::size_t all);
  /// The same with a share of the work, whose answer counts: False asks to end.
  bool ask(float percent);
  /// False where the work is to end.
  bool goOn();
  /// Behind the work, with the GIL held.
  void rethrow() const {
    if (raised_) std::rethrow_exception(raised_);
  }

 private:
  template <typename Call>
  void guarded(Call call);

  pybind11::object progress_;
  std::exception_ptr raised_;
};

}  // namespace binding
