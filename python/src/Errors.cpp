#include "python/src/Errors.h"

#include <exception>
#include <utility>

#include "polarline/errors.h"
#include "python/src/Text.h"

namespace binding {
namespace {

namespace py = pybind11;

void raise(const char* name, const char* text) {
  const py::object type = py::module_::import("polarline._errors").attr(name);
  PyErr_SetObject(type.ptr(), textOf(text).ptr());
}

void translate(std::exception_ptr failure) {
  try {
    if (failure) std::rethrow_exception(std::move(failure));
  } catch (const polarline::InputError& error) {
    raise("InputError", error.what());
  } catch (const polarline::OutputError& error) {
    raise("OutputError", error.what());
  }
}

}  // namespace

void translateErrors() { py::register_exception_translator(translate); }

}  // namespace binding
