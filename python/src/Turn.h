#pragma once

#include <pybind11/pybind11.h>

#include <utility>

namespace binding {

/// The library keeps the text of its last failure and the form of its console lines for the whole process, so that its
/// calls may not overlap: whoever comes second waits until the first is done. Made and destroyed with the GIL held.
class Turn {
 public:
  /// Waits, with the GIL free; a signal whose handler raises ends that. Throws `std::runtime_error` in a thread that
  /// has its turn already, as a `progress` that calls back has.
  Turn();
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;
  ~Turn();
};

/// In the child of a fork, which has none of the threads that may have had their turn.
void forgetTurns();

/// Work of the library: in its turn, the GIL free.
template <typename Work>
auto aside(Work&& work) {
  const Turn turn;
  const pybind11::gil_scoped_release free;
  return std::forward<Work>(work)();
}

}  // namespace binding
