#include "python/src/Turn.h"

#include <chrono>
#include <optional>
#include <stdexcept>
#include <thread>

namespace binding {
namespace {

/// Whose turn it is. The GIL guards it.
std::optional<std::thread::id> current;

}  // namespace

Turn::Turn() {
  constexpr std::chrono::milliseconds kLook{2};
  if (current == std::this_thread::get_id())
    throw std::runtime_error("a run of this thread is under way; what it calls back can't begin another");
  while (current) {
    {
      const pybind11::gil_scoped_release free;
      std::this_thread::sleep_for(kLook);
    }
    if (PyErr_CheckSignals() != 0) throw pybind11::error_already_set();
  }
  current = std::this_thread::get_id();
}

Turn::~Turn() { current.reset(); }

void forgetTurns() { current.reset(); }

}  // namespace binding
