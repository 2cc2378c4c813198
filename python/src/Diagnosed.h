#pragma once

#include <pybind11/pybind11.h>

namespace binding {

/// The diagnosis of a check as the document has it, with the correction; None where there is none.
pybind11::object diagnosisOf(const pybind11::object& check);

}  // namespace binding
