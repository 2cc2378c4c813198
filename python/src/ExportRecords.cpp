#include <PolarLinePrecision.h>
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cstring>

#include "python/src/Arrays.h"
#include "python/src/FigureText.h"
#include "python/src/Points.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;

/// A list that every record has in full: a copy as an array, and set from whatever is as long.
template <typename Class, typename Owner, typename List>
void defNumbers(Class& type, const char* name, List Owner::*member, const char* doc) {
  using Number = typename List::value_type;
  using Array = py::array_t<Number, py::array::c_style | py::array::forcecast>;
  type.def_property(
      name,
      [member](const Owner& self) {
        const List& numbers = self.*member;
        return Array(static_cast<py::ssize_t>(numbers.size()), numbers.data());
      },
      [member, name](Owner& self, const Array& given) {
        List& numbers = self.*member;
        if (given.size() != static_cast<py::ssize_t>(numbers.size()))
          throw py::value_error(std::string(name) + ": found " + std::to_string(given.size()) + " numbers, wanted " +
                                std::to_string(numbers.size()));
        std::memcpy(numbers.data(), given.data(), numbers.size() * sizeof(Number));
      },
      doc);
}

void addCalibrationRecords(py::module_& module) {
  py::class_<ExportedCameraCalib> camera(module, "ExportedCameraCalib", "One camera as a caller holds it.");
  camera.def(py::init<>())
      .def_readwrite("height", &ExportedCameraCalib::height, "Image rows, pixels.")
      .def_readwrite("width", &ExportedCameraCalib::width, "Image columns, pixels.")
      .def_readwrite("poly_nx", &ExportedCameraCalib::poly_nx, "Polynomial cells across; 0: no tables.")
      .def_readwrite("poly_ny", &ExportedCameraCalib::poly_ny, "Polynomial cells down; 0: no tables.");
  defNumbers(camera, "intrinsics", &ExportedCameraCalib::intrinsics,
             "Fx, Fy, Cx, Cy, K1 to K6, P1, P2: float64, shape (12,).");
  defNumbers(camera, "poly_x", &ExportedCameraCalib::poly_x,
             "x corrections, 10 coefficients a cell: float32, shape (500,).");
  defNumbers(camera, "poly_y", &ExportedCameraCalib::poly_y, "y corrections, the same order.");
  py::class_<ExportedCalibParams> pair(module, "ExportedCalibParams", "A calibrated stereo pair as a caller holds it.");
  pair.def(py::init<>())
      .def_readwrite("left", &ExportedCalibParams::left, "The left camera.")
      .def_readwrite("right", &ExportedCalibParams::right, "The right camera.")
      .def_property(
          "boardPoints", [](const ExportedCalibParams& self) { return arrayOf(self.boardPoints); },
          [](ExportedCalibParams& self, const PointArray<float>& given) { self.boardPoints = pointsOf(given); },
          "True positions of the dots by id: float32, shape (n, 3), board unit.");
  defNumbers(pair, "extrinsics", &ExportedCalibParams::extrinsics,
             "RX, RY, RZ (radians), TX, TY, TZ (board unit): shape (6,).");
  py::class_<RectifiedParams>(module, "RectifiedParams", "Geometry of images that were rectified outside the library.")
      .def(py::init<>())
      .def_readwrite("focal", &RectifiedParams::focal, "Rectified focal length, pixels.")
      .def_readwrite("baseline", &RectifiedParams::baseline, "Baseline, board unit.")
      .def_readwrite("cx", &RectifiedParams::cx, "Rectified principal point, pixels.")
      .def_readwrite("cy", &RectifiedParams::cy, "Rectified principal point, pixels.")
      .def_readwrite("disparity_offset", &RectifiedParams::disparity_offset, "Added to the column difference, pixels.")
      .def_property(
          "boardPoints", [](const RectifiedParams& self) { return arrayOf(self.boardPoints); },
          [](RectifiedParams& self, const PointArray<double>& given) { self.boardPoints = pointsOf(given); },
          "True positions of the dots by id: float64, shape (n, 3), board unit.");
}

void addMultiCalibration(py::module_& module) {
  py::class_<MultiCalibrationEntry> entry(module, "MultiCalibrationEntry", "One camera of a binary calibration file.");
  entry.def_readonly("value", &MultiCalibrationEntry::value, "Copied through.")
      .def_readonly("height", &MultiCalibrationEntry::height, "Image rows.")
      .def_readonly("width", &MultiCalibrationEntry::width, "Image columns.")
      .def_readonly("camera_name", &MultiCalibrationEntry::camera_name, "As in the file.");
  defNumbers(entry, "parameters", &MultiCalibrationEntry::parameters,
             "Fx, Fy, Cx, Cy, then the model's: float32, shape (12,).");
  defNumbers(entry, "table_block", &MultiCalibrationEntry::table_block, "uint8, shape (2016,).");
  defNumbers(entry, "extrinsics", &MultiCalibrationEntry::extrinsics,
             "Rotation (radians), translation: float32, shape (6,).");
  py::class_<MultiCalibration>(module, "MultiCalibration", "Content of a binary calibration file.")
      .def_readonly("last_byte", &MultiCalibration::last_byte, "File offset 49.")
      .def_readonly("fourth_byte", &MultiCalibration::fourth_byte, "File offset 47.")
      .def_readonly("camera_names", &MultiCalibration::camera_names, "In the order of the file.")
      .def_readonly("value", &MultiCalibration::value, "File offset 43.")
      .def_readonly("model_names", &MultiCalibration::model_names, "'Brown', 'KB', 'DS' or 'MEI'.")
      .def_readonly("model_code", &MultiCalibration::model_code,
                    "1 to 4 when all cameras have that model, otherwise 0.")
      .def_readonly("entries", &MultiCalibration::entries, "A `MultiCalibrationEntry` a camera.")
      .def_readonly("long_text", &MultiCalibration::long_text, "File offset 11.")
      .def_readonly("n", &MultiCalibration::n, "Number of cameras.")
      .def_readonly("format_byte", &MultiCalibration::format_byte, "File offset 0.")
      .def_readonly("short_text", &MultiCalibration::short_text, "File offset 1.");
}

void addTriPoint(py::module_& module) {
  py::class_<TriPointRecord>(module, "TriPointRecord", "One measured board point of a pair.")
      .def_readonly("id", &TriPointRecord::id, "Board id.")
      .def_readonly("left_x", &TriPointRecord::left_x, "Measured left pixel.")
      .def_readonly("left_y", &TriPointRecord::left_y, "Measured left pixel.")
      .def_readonly("right_x", &TriPointRecord::right_x, "Measured right pixel.")
      .def_readonly("right_y", &TriPointRecord::right_y, "Measured right pixel.")
      .def_readonly("x", &TriPointRecord::x, "Triangulated, left camera frame, board unit.")
      .def_readonly("y", &TriPointRecord::y, "As `x`.")
      .def_readonly("z", &TriPointRecord::z, "As `x`.")
      .def_readonly("dis_errors", &TriPointRecord::dis_errors,
                    "(id, error) of the distance to each other point, board unit.")
      .def_readonly("dis_rms", &TriPointRecord::dis_rms, "Root mean square of `dis_errors`.");
}

void addResult(py::module_& module) {
  using Record = PolarResultRecord;
  py::class_<Record> record(module, "PolarResultRecord", "The figures of one finished pair, as the library has them.");
  for (const auto& [name, member] : {std::pair{"tri_mean", &Record::tri_mean},
                                     {"tri_min", &Record::tri_min},
                                     {"tri_max", &Record::tri_max},
                                     {"tri_rms", &Record::tri_rms},
                                     {"dy_means", &Record::dy_means},
                                     {"dy_min", &Record::dy_min},
                                     {"dy_max", &Record::dy_max},
                                     {"dis_rms", &Record::dis_rms},
                                     {"nor_rms", &Record::nor_rms},
                                     {"zero_dis", &Record::zero_dis},
                                     {"gt_rms", &Record::gt_rms},
                                     {"space_rms", &Record::space_rms}})
    record.def_readonly(name, member, figureText(name).c_str());
  for (const auto& [name, member] : {std::pair{"icp_x_rms", &Record::icp_x_rms},
                                     {"icp_y_rms", &Record::icp_y_rms},
                                     {"icp_z_rms", &Record::icp_z_rms},
                                     {"icp_nor_rms", &Record::icp_nor_rms}})
    record.def_readonly(name, member, figureText(name).c_str());
  for (const auto& [name, member] :
       {std::pair{"tri_dis", &Record::tri_dis}, {"pol_dis", &Record::pol_dis}, {"PoseReport", &Record::PoseReport}})
    record.def_property_readonly(
        name,
        [member = member](const py::object& self) {
          const auto& values = self.cast<const Record&>().*member;
          return viewOf(values.data(), values.size(), sizeof(double), self);
        },
        figureText(name).c_str());
  defColumn(record, "id_dis", &Record::id_dis, figureText("id_dis").c_str());
  defColumn(record, "frameValues", &Record::frameValues, figureText("frameValues").c_str());
  record.def_property_readonly(
      "detect_canvas",
      [](const Record& self) {
        return self.detect_canvas.empty() ? py::none() : py::object(viewOf(self.detect_canvas));
      },
      "Both images with the marked points, uint8, blue, green, red; None where there is none.");
  defTuple(record, "pairPoints", &Record::pairPoints, "A `TriPointRecord` each, a tuple.");
}

}  // namespace

void addExportRecords(py::module_& module) {
  addCalibrationRecords(module);
  addMultiCalibration(module);
  addTriPoint(module);
  addResult(module);
}

}  // namespace binding
