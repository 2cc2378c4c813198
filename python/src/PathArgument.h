#pragma once

#include <pybind11/pybind11.h>

#include <string>

namespace binding {

/// A path, or a text in its place, that a caller gave: `str`, `bytes`, an object with `__fspath__`, or none.
struct PathArgument {
  std::string text;
  bool is_given = false;

  const char* orNull() const { return is_given ? text.c_str() : nullptr; }
};

}  // namespace binding

/// As Python's own functions take paths, with the bytes that the file system has.
template <>
struct pybind11::detail::type_caster<binding::PathArgument> {
  PYBIND11_TYPE_CASTER(binding::PathArgument, const_name("Union[str, os.PathLike]"));

  bool load(handle given, bool /*convert*/) {
    if (given.is_none()) return true;
    PyObject* encoded = nullptr;
    if (PyUnicode_FSConverter(given.ptr(), &encoded) == 0) {
      PyErr_Clear();
      return false;
    }
    value.text = reinterpret_steal<bytes>(encoded);
    value.is_given = true;
    return true;
  }
};
