#include "polarline/warning.h"
#include "python/src/Text.h"
#include "python/src/Types.h"

namespace binding {

namespace py = pybind11;
using polarline::Warning;

void addWarnings(py::module_& module) {
  py::class_<Warning> warning(module, "Warning", "Something to look at, although the work went on.");
  warning.def_readonly("code", &Warning::code, "A word that does not change from version to version.");
  defText(warning, "text", &Warning::text, "What was found, and where.");
  defText(warning, "advice", &Warning::advice, "What to do about it.");
  warning.def_property_readonly(
      "pair", [](const Warning& self) { return self.pair < 0 ? py::none() : py::object(py::int_(self.pair)); },
      "Index of the pair that it is about, from 0; None: of none.");
}

}  // namespace binding
