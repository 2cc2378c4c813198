#include "polarline/detect.h"
#include "python/src/Arrays.h"
#include "python/src/PictureArgument.h"
#include "python/src/Text.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::ClassTally;
using polarline::ContourTally;
using polarline::DetectedBoard;
using polarline::Detection;
using polarline::DetectionStage;
using polarline::Dot;
using polarline::SeenEllipse;

void addEllipse(py::module_& module) {
  py::class_<SeenEllipse>(module, "Ellipse", "An ellipse that the detector fitted to an outline, numbered or not.")
      .def_readonly("x", &SeenEllipse::x, "Column of the centre, pixels.")
      .def_readonly("y", &SeenEllipse::y, "Row of the centre, pixels.")
      .def_readonly("a", &SeenEllipse::a, "First semi-axis, pixels.")
      .def_readonly("b", &SeenEllipse::b, "Second semi-axis, pixels.")
      .def_readonly("angle", &SeenEllipse::angle, "Of the first semi-axis from the x axis towards the y axis, radians.")
      .def_readonly("kind", &SeenEllipse::kind, "'dot', 'ring', 'solid_ring', 'big_dot', 'unknown' or 'rejected'.")
      .def_readonly("marker", &SeenEllipse::marker, "Recognised as one of the board's markers.");
}

void addTallies(py::module_& module) {
  py::class_<ContourTally>(module, "ContourTally", "What became of the outlines.")
      .def_readonly("traced", &ContourTally::traced, "All outlines.")
      .def_readonly("too_short", &ContourTally::too_short, "Specks.")
      .def_readonly("not_round", &ContourTally::not_round, "Too long, or not round enough.")
      .def_readonly("not_fitted", &ContourTally::not_fitted, "No ellipse fits.")
      .def_readonly("inexact", &ContourTally::inexact, "Too far off the outline, or over the picture's edge.")
      .def_readonly("accepted", &ContourTally::accepted, "Became an ellipse.");
  py::class_<ClassTally>(module, "ClassTally", "The ellipses by class.")
      .def_readonly("dots", &ClassTally::dots, "Dots.")
      .def_readonly("rings", &ClassTally::rings, "Rings.")
      .def_readonly("solid_rings", &ClassTally::solid_rings, "Rings with a core.")
      .def_readonly("big_dots", &ClassTally::big_dots, "Big dots.")
      .def_readonly("unknown", &ClassTally::unknown, "Like a marker, but none.")
      .def_readonly("rejected", &ClassTally::rejected, "Of no class.");
}

void addStages(py::module_& module) {
  py::class_<DetectionStage>(module, "DetectionStage", "A step of the detection and how it went.")
      .def_readonly("name", &DetectionStage::name, "As `Detection.step`.")
      .def_readonly("state", &DetectionStage::state, "'passed', 'stopped' or 'not reached'.")
      .def_readonly("text", &DetectionStage::text, "What it saw, in numbers.");
  py::class_<DetectedBoard>(module, "DetectedBoard", "The board as the target describes it.")
      .def_readonly("type", &DetectedBoard::type, "1 and 2: ring boards; 3: four big dots.")
      .def_readonly("rows", &DetectedBoard::rows, "Rows of dots.")
      .def_readonly("columns", &DetectedBoard::columns, "Dots of a row.")
      .def_readonly("step", &DetectedBoard::step, "Pitch along a row, board unit.")
      .def_readonly("step_y", &DetectedBoard::step_y, "Pitch of the rows, board unit.");
}

py::tuple sizeOf(const cv::Size& size) { return py::make_tuple(size.width, size.height); }

/// The picture that was searched, with what was seen in it drawn.
using Drawing = cv::Mat (*)(const cv::Mat&, const Detection&);

py::array drawn(Drawing draw, const Detection& detection, const py::object& picture) {
  const PictureArgument given(picture, "image");
  return viewOf(aside([&] { return draw(given.pixels, detection); }));
}

void addOutcome(py::class_<Detection>& type) {
  type.def_readonly("found", &Detection::found, "One dot or more was numbered.")
      .def_readonly("step", &Detection::step, "Where it stopped; 'done' when it did not.")
      .def_readonly("text", &Detection::text, "The outcome in words.")
      .def_readonly("advice", &Detection::advice, "What to do about it; empty where dots were found.")
      .def_readonly("board", &Detection::board, "The `DetectedBoard`.")
      .def_property_readonly(
          "size", [](const Detection& self) { return sizeOf(self.size); }, "(columns, rows).")
      .def_property_readonly(
          "working_size", [](const Detection& self) { return sizeOf(self.working_size); },
          "(columns, rows) of the picture as it was searched.")
      .def_readonly("dot_radius", &Detection::dot_radius, "Median semi-axis of the dots, pixels.")
      .def_readonly("contours", &Detection::contours, "The `ContourTally`.")
      .def_readonly("classes", &Detection::classes, "The `ClassTally`.");
  defTuple(type, "warnings", &Detection::warnings, "A `Warning` each, a tuple.");
  defTuple(type, "stages", &Detection::stages, "A `DetectionStage` each, a tuple.");
  defTuple(type, "ellipses", &Detection::ellipses, "An `Ellipse` each, a tuple.");
}

void addDots(py::class_<Detection>& type) {
  defColumn(type, "id", &Detection::dots, &Dot::id, "row * columns + column of each dot, int32, rising.");
  defColumn(type, "row", &Detection::dots, &Dot::row, "Row of the board, int32.");
  defColumn(type, "column", &Detection::dots, &Dot::column, "Column of the board, int32.");
  defColumn(type, "x", &Detection::dots, &Dot::x, "Column in the picture, pixels, float64; pixel centres are whole.");
  defColumn(type, "y", &Detection::dots, &Dot::y, "Row in the picture, pixels, float64.");
  defColumn(type, "missing", &Detection::missing, "The ids of the board that no dot has, int32.");
  type.def("__len__", [](const Detection& self) { return self.dots.size(); })
      .def("__str__", &polarline::detectionTable)
      .def_property_readonly(
          "binary",
          [](const Detection& self) { return self.binary.empty() ? py::none() : py::object(viewOf(self.binary)); },
          "The two-valued picture that was searched, uint8 of `working_size`; None where there is none.")
      .def(
          "overlay",
          [](const Detection& self, const py::object& image) { return drawn(&polarline::overlay, self, image); },
          py::arg("image"), "The picture with its numbered dots: an array of uint8, blue, green, red.")
      .def(
          "ellipses_picture",
          [](const Detection& self, const py::object& image) {
            return drawn(&polarline::ellipsesPicture, self, image);
          },
          py::arg("image"), "The picture with all ellipses in the colours of their classes: uint8, blue, green, red.")
      .def("to_csv", &polarline::pointsCsv, "The dots: the line 'id,row,column,x,y', then a line a dot.")
      .def("to_json", &polarline::detectionJson, py::arg("image") = "", py::arg("target") = "",
           "One JSON object, schema 'polarline-detect/1'; the names are told in it.");
}

}  // namespace

void addDetection(py::module_& module) {
  addEllipse(module);
  addTallies(module);
  addStages(module);
  py::class_<Detection> detection(module, "Detection", R"(What the detector saw in one picture.

`id`, `row`, `column`, `x` and `y` are read-only arrays of one entry a dot that share memory with it.)");
  addOutcome(detection);
  addDots(detection);
  module.def(
      "detect",
      [](const py::object& image, const std::string& target) {
        const PictureArgument given(image, "image");
        return aside([&] { return polarline::detect(given.pixels, target); });
      },
      py::arg("image"), py::arg("target"), "A detection; `polarline.detect` is made of it.");
  module.def(
      "read_picture",
      [](const std::string& path) { return viewOf(aside([&] { return polarline::readPicture(path); })); },
      py::arg("path"), "A picture with its pixels as they are stored; `polarline.read_picture` is made of it.");
}

}  // namespace binding
