#pragma once

#include <pybind11/pybind11.h>

#include <cstddef>
#include <string>
#include <vector>

namespace binding {

/// A text that may hold the name of a file, whose bytes need be no UTF-8: as `os.fsdecode` has it.
inline pybind11::str textOf(const std::string& text) {
  PyObject* const decoded = PyUnicode_DecodeFSDefaultAndSize(text.data(), static_cast<Py_ssize_t>(text.size()));
  if (decoded == nullptr) throw pybind11::error_already_set();
  return pybind11::reinterpret_steal<pybind11::str>(decoded);
}

/// Such texts as a tuple.
inline pybind11::tuple textsOf(const std::vector<std::string>& texts) {
  pybind11::tuple all(texts.size());
  for (std::size_t k = 0; k < texts.size(); ++k) all[k] = textOf(texts[k]);
  return all;
}

/// A read-only property of a text.
template <typename Class, typename Owner>
void defText(Class& type, const char* name, std::string Owner::*member, const char* doc) {
  using Bound = typename Class::type;
  type.def_property_readonly(
      name, [member](const Bound& self) { return textOf(self.*member); }, doc);
}

/// The same of several.
template <typename Class, typename Owner>
void defTexts(Class& type, const char* name, std::vector<std::string> Owner::*member, const char* doc) {
  using Bound = typename Class::type;
  type.def_property_readonly(
      name, [member](const Bound& self) { return textsOf(self.*member); }, doc);
}

}  // namespace binding
