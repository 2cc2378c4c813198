#include "python/src/CallBack.h"

namespace binding {
namespace py = pybind11;

template <typename Call>
void CallBack::guarded(Call call) {
  if (raised_) return;
  const py::gil_scoped_acquire held;
  try {
    call();
    if (PyErr_CheckSignals() != 0) throw py::error_already_set();
  } catch (...) {
    raised_ = std::current_exception();
  }
}

void CallBack::tell(const std::function<void(const py::object& progress)>& call) {
  guarded([&] {
    if (!progress_.is_none()) call(progress_);
  });
}

void CallBack::tell(std::size_t done, std::size_t all) {
  tell([&](const py::object& progress) { progress(done, all); });
}

bool CallBack::ask(float percent) {
  bool answer = true;
  guarded([&] {
    if (!progress_.is_none()) answer = progress_(percent).cast<bool>();
  });
  return answer && !raised_;
}

bool CallBack::goOn() {
  guarded([] {});
  return !raised_;
}

}  // namespace binding
