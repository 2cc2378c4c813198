#include "polarline/diagnose.h"
#include "python/src/Arrays.h"
#include "python/src/Text.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::Cause;
using polarline::Diagnosis;

void addCause(py::module_& module) {
  py::class_<Cause>(module, "Cause",
                    "What the right camera that took the pictures has more than the calibration says, in the frame of "
                    "the rectified left camera: x right, y down, z forward.")
      .def_readonly("name", &Cause::name,
                    "'rotation_x', 'rotation_y', 'rotation_z', 'focal_ratio', 'row_offset', "
                    "'baseline_y', 'baseline_z' or 'k1'.")
      .def_readonly("value", &Cause::value, "In `unit`.")
      .def_readonly("sd", &Cause::sd, "Standard error, of the same unit.")
      .def_readonly("unit", &Cause::unit, "'deg', 'px', 'board unit', or empty.")
      .def_readonly("share", &Cause::share, "Part of the squared row differences that it explains.")
      .def_readonly("text", &Cause::text, "In words.")
      .def_readonly("group", &Cause::group, "Causes of one number above 0 are not told apart by the pictures.");
}

}  // namespace

void addDiagnosis(py::module_& module) {
  addCause(module);
  py::class_<Diagnosis> diagnosis(module, "Diagnosis",
                                  "Why the rows differ. Without causes the text says why none is told.");
  defTuple(diagnosis, "causes", &Diagnosis::causes, "The `Cause`s, a tuple.");
  diagnosis.def_readonly("text", &Diagnosis::text, "All of it in a few sentences.")
      .def_readonly("rows_before", &Diagnosis::rows_before, "Mean absolute row difference as seen, pixels.")
      .def_readonly("rows_after", &Diagnosis::rows_after, "The same predicted with the causes taken out.")
      .def_readonly("pattern_left", &Diagnosis::pattern_left, "Whether what remains is alike in neighbouring dots.")
      .def_property_readonly(
          "corrected",
          [](const py::object& self) {
            const auto& corrected = self.cast<const Diagnosis&>().corrected;
            return referenceTo(corrected ? &*corrected : nullptr, self);
          },
          "The `Calibration` with the causes taken out; None without causes and for a polynomial lens.");
}

}  // namespace binding
