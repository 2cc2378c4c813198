#include <optional>

#include "polarline/check.h"
#include "polarline/diagnose.h"
#include "python/src/Arrays.h"
#include "python/src/Diagnosed.h"
#include "python/src/Text.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::Cause;
using polarline::Check;
using polarline::Correction;

/// What a check found, and the correction that was made of it.
struct Diagnosed {
  py::object owner;
  const Check* check;

  const polarline::Diagnosis& found() const { return *check->diagnosis; }
};

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

void addCorrection(py::module_& module) {
  py::class_<Correction> correction(module, "Correction",
                                    "A calibration with the causes taken out, and what it is worth.");
  defText(correction, "path", &Correction::path, "Where it was written.");
  correction
      .def_readonly("rows_predicted", &Correction::rows_predicted, "Mean absolute row difference expected, pixels.")
      .def_readonly("rows_seen", &Correction::rows_seen, "The same of the set checked again with it.");
}

template <typename Value>
py::object optionalOf(const std::optional<Value>& value, py::handle owner) {
  return referenceTo(value ? &*value : nullptr, owner);
}

}  // namespace

py::object diagnosisOf(const py::object& check) {
  const auto& seen = check.cast<const Check&>();
  return seen.diagnosis ? py::cast(Diagnosed{check, &seen}) : py::none();
}

void addDiagnosis(py::module_& module) {
  addCause(module);
  addCorrection(module);
  py::class_<Diagnosed>(module, "Diagnosis", "Why the rows differ. Without causes the text says why none is told.")
      .def_property_readonly(
          "causes", [](const Diagnosed& self) { return tupleOf(self.found().causes, self.owner); },
          "The `Cause`s, a tuple.")
      .def_property_readonly(
          "text", [](const Diagnosed& self) { return self.found().text; }, "All of it in a few sentences.")
      .def_property_readonly(
          "rows_before", [](const Diagnosed& self) { return self.found().rows_before; },
          "Mean absolute row difference as seen, pixels.")
      .def_property_readonly(
          "rows_after", [](const Diagnosed& self) { return self.found().rows_after; },
          "The same predicted with the causes taken out.")
      .def_property_readonly(
          "pattern_left", [](const Diagnosed& self) { return self.found().pattern_left; },
          "Whether what remains is alike in neighbouring dots.")
      .def_property_readonly(
          "correction", [](const Diagnosed& self) { return optionalOf(self.check->correction, self.owner); },
          "The `Correction`; None unless one was asked for and made.")
      .def_property_readonly(
          "corrected", [](const Diagnosed& self) { return optionalOf(self.found().corrected, self.owner); },
          "The `Calibration` with the causes taken out; None without causes and for a polynomial lens.");
}

}  // namespace binding
