#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <utility>

namespace binding {

/// What Python has to say while the library works: a progress function, Ctrl-C. Exceptions must not pass through the
/// library, which takes them for its own; they are kept, the work is told to end, and `rethrow` raises them as they
/// were.
class CallBack {
 public:
  /// `progress`: a callable, or None.
  explicit CallBack(pybind11::object progress) : progress_(std::move(progress)) {}

  /// Calls the progress function, where there is one, as `call` does.
  void tell(const std::function<void(const pybind11::object& progress)>& call);
  /// Calls it with two numbers.
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

/// Leaves work that tells how far it is and asks nobody whether to go on.
struct Stop {};

/// Such work, with the GIL free: `work` is given the function that it tells. What the progress function raises, and
/// Ctrl-C, end it.
template <typename Work>
auto told(const pybind11::object& progress, Work work) {
  CallBack back(progress);
  const std::function<void(std::size_t, std::size_t)> tell = [&back](std::size_t done, std::size_t all) {
    back.tell(done, all);
    if (!back.goOn()) throw Stop{};
  };
  try {
    const pybind11::gil_scoped_release free;
    return work(tell);
  } catch (const Stop&) {
    back.rethrow();
    throw;
  }
}

}  // namespace binding
