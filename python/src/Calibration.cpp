#include "polarline/calibration.h"

#include <pybind11/stl.h>

#include <array>

#include "python/src/Arrays.h"
#include "python/src/Text.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::Calibration;
using polarline::Camera;
using polarline::ImportedCalibration;
using polarline::ImportOptions;
using polarline::Size;

/// (columns, rows).
using Sides = std::pair<int, int>;

void addCamera(py::module_& module) {
  py::class_<Camera>(module, "Camera", R"(One camera of a calibration. Read-only; `Calibration.replace` makes another.

Brown (1966) with K1 to K6, P1, P2, or the fisheye model of Kannala and Brandt (2006) with K1 to K4.)")
      .def(py::init([](double fx, double fy, double cx, double cy, const std::array<double, 6>& k, double p1, double p2,
                       const Sides& size) {
             return Camera{{size.first, size.second}, fx, fy, cx, cy, k, p1, p2};
           }),
           py::kw_only(), py::arg("fx"), py::arg("fy"), py::arg("cx"), py::arg("cy"),
           py::arg("k") = std::array<double, 6>{}, py::arg("p1") = 0.0, py::arg("p2") = 0.0, py::arg("size") = Sides{})
      .def_property_readonly(
          "size",
          [](const Camera& self) {
            return Sides{self.size.width, self.size.height};
          },
          "(columns, rows) of a picture; (0, 0): not known.")
      .def_readonly("fx", &Camera::fx, "Focal length along the rows, pixels.")
      .def_readonly("fy", &Camera::fy, "Focal length along the columns, pixels.")
      .def_readonly("cx", &Camera::cx, "Column of the principal point, pixels; pixel centres are whole.")
      .def_readonly("cy", &Camera::cy, "Row of the principal point, pixels.")
      .def_property_readonly(
          "k", [](const Camera& self) { return py::tuple(py::cast(self.k)); },
          "Lens coefficients K1 to K6, a tuple of 6; those of a fisheye are K1 to K4.")
      .def_readonly("p1", &Camera::p1, "First tangential coefficient of the lens, P1.")
      .def_readonly("p2", &Camera::p2, "Second tangential coefficient, P2.");
}

Calibration made(int type, const Camera& left, const Camera& right, const std::array<double, 6>& pose) {
  return {type, left, right, pose[0], pose[1], pose[2], pose[3], pose[4], pose[5]};
}

void addPair(py::module_& module) {
  py::class_<Calibration>(module, "Calibration",
                          R"(A calibrated pair: X_right = R X_left + T with R = Rz(rz) Rx(rx) Ry(ry). Read-only.

Parameters
----------
left, right : Camera
    The cameras.
type : int
    0: Brown with K1 to K3; 1: Brown with K1 to K6; 2: fisheye.
rx, ry, rz : float
    Radians.
tx, ty, tz : float
    Board unit.)")
      .def(py::init([](const Camera& left, const Camera& right, int type, double rx, double ry, double rz, double tx,
                       double ty, double tz) {
             return made(type, left, right, {rx, ry, rz, tx, ty, tz});
           }),
           py::arg("left"), py::arg("right"), py::kw_only(), py::arg("type") = 0, py::arg("rx") = 0.0,
           py::arg("ry") = 0.0, py::arg("rz") = 0.0, py::arg("tx") = 0.0, py::arg("ty") = 0.0, py::arg("tz") = 0.0)
      .def_readonly("type", &Calibration::type, "0: Brown with K1 to K3; 1: Brown with K1 to K6; 2: fisheye.")
      .def_readonly("left", &Calibration::left, "The left `Camera`.")
      .def_readonly("right", &Calibration::right, "The right `Camera`.")
      .def_readonly("rx", &Calibration::rx, "Turn about x, radians.")
      .def_readonly("ry", &Calibration::ry, "Turn about y, radians.")
      .def_readonly("rz", &Calibration::rz, "Turn about z, radians.")
      .def_readonly("tx", &Calibration::tx, "x of T, board unit.")
      .def_readonly("ty", &Calibration::ty, "y of T, board unit.")
      .def_readonly("tz", &Calibration::tz, "z of T, board unit.")
      .def_property_readonly("baseline", &polarline::baselineOf, "Length of T, board unit.")
      .def_property_readonly(
          "model", [](const Calibration& self) { return polarline::typeName(self.type); }, "The type in words.")
      .def("to_json", &polarline::calibrationJson, "Our JSON calibration, `calib.json`.")
      .def("to_opencv", &polarline::openCvText, "One OpenCV storage file in YAML: M1 D1 M2 D2 R T.");
}

void addOptions(py::module_& module) {
  py::class_<ImportOptions>(module, "ImportOptions", "What the files of a calibration do not say.")
      .def(py::init([](const std::string& format, double scale, const std::string& model,
                       const std::optional<Sides>& size, std::optional<double> baseline,
                       std::optional<std::pair<int, int>> pair, bool swap) {
             ImportOptions options{format, scale, model, std::nullopt, baseline, pair, swap};
             if (size) options.size = Size{size->first, size->second};
             return options;
           }),
           py::kw_only(), py::arg("format"), py::arg("scale"), py::arg("model"), py::arg("size").none(true),
           py::arg("baseline").none(true), py::arg("pair").none(true), py::arg("swap"));
}

void addImported(py::module_& module) {
  py::class_<ImportedCalibration> imported(module, "ImportedCalibration", "What an import gives.");
  imported.def_readonly("calibration", &ImportedCalibration::calibration, "The `Calibration`.")
      .def_readonly("format", &ImportedCalibration::format, "Of the file: 'opencv', 'ros', 'kalibr', 'mrcal', ...")
      .def("to_json", &polarline::importedCalibrationJson, "One JSON object, schema 'polarline-import/1'.")
      .def("__str__", &polarline::importedCalibrationText);
  defTuple(imported, "warnings", &ImportedCalibration::warnings, "A `Warning` each, a tuple.");
}

}  // namespace

void addCalibration(py::module_& module) {
  addCamera(module);
  addPair(module);
  addOptions(module);
  addImported(module);
  module.def("calibration_formats", &polarline::calibrationFormats,
             "The names that `import_calibration` takes as `format`.");
  module.def(
      "import_calibration",
      [](const std::vector<std::string>& files, const ImportOptions& options) {
        return aside([&] { return polarline::importCalibration(files, options); });
      },
      py::arg("files"), py::arg("options"),
      "A calibration of another tool; `polarline.import_calibration` is made of it.");
}

}  // namespace binding
