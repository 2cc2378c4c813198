#include <pybind11/stl.h>

#include "polarline/explain.h"
#include "python/src/Types.h"

namespace binding {

namespace py = pybind11;
using polarline::Explanation;

void addExplanations(py::module_& module) {
  py::class_<Explanation>(module, "Explanation", "A status, a warning, an exit code or a figure in words.")
      .def_readonly("code", &Explanation::code, "As it is shown: '-9', 'too_few_shared', 'exit 3'.")
      .def_readonly("name", &Explanation::name, "A stable word.")
      .def_readonly("meaning", &Explanation::meaning, "A sentence.")
      .def_readonly("advice", &Explanation::advice, "What to do.")
      .def_readonly("unit", &Explanation::unit, "Of a figure; empty for what is none.");
  module.def(
      "explain", [](const std::string& code) { return py::tuple(py::cast(polarline::explainAll(code))); },
      py::arg("code"), "All that a code or name may mean; `polarline.explain` is made of it.");
}

}  // namespace binding
