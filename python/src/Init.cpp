#include "polarline/init.h"

#include <pybind11/stl.h>

#include <utility>

#include "python/src/Arrays.h"
#include "python/src/CallBack.h"
#include "python/src/Text.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::ImportOptions;
using polarline::InitDetection;
using polarline::InitPair;
using polarline::InitRequest;
using polarline::MadeSet;

void addPieces(py::module_& module) {
  py::class_<InitPair> pair(module, "MadePair", "A pair of a set that was made.");
  defText(pair, "left", &InitPair::left, "The left picture, as it was found.");
  defText(pair, "right", &InitPair::right, "The right one.");
  defText(pair, "listed_left", &InitPair::listed_left, "The left picture, as the list names it.");
  defText(pair, "listed_right", &InitPair::listed_right, "The right one.");
  py::class_<InitDetection>(module, "SeenBoard", "What the detector saw in one picture of the first pair.")
      .def_readonly("found", &InitDetection::found, "Numbered dots.")
      .def_readonly("dot_radius", &InitDetection::dot_radius,
                    "Of the smallest twentieth of the plain dots, pixels; 0: not known.")
      .def_readonly("columns", &InitDetection::columns, "Of dots, counted in the picture; 0: too few to count.")
      .def_readonly("rows", &InitDetection::rows, "As `columns`.");
}

void addFiles(py::class_<MadeSet>& made) {
  defText(made, "folder", &MadeSet::folder, "As it was named.");
  defTexts(made, "files", &MadeSet::files, "Names of the files that were written, a tuple.");
  defTuple(made, "pairs", &MadeSet::pairs, "A `MadePair` each, a tuple.");
  defTexts(made, "alone_left", &MadeSet::alone_left, "Left pictures without a partner, which are not in the set.");
  defTexts(made, "alone_right", &MadeSet::alone_right, "Right ones.");
  made.def_property_readonly(
      "size",
      [](const MadeSet& self) {
        return std::pair{self.picture.width, self.picture.height};
      },
      "(columns, rows) of every picture.");
}

void addMade(py::module_& module) {
  py::class_<MadeSet> made(module, "MadeSet", "A set that was made, and how.");
  addFiles(made);
  made.def_readonly("channels", &MadeSet::channels, "Of every picture.")
      .def_readonly("bits", &MadeSet::bits, "8 or 16, of every channel.")
      .def_readonly("board", &MadeSet::board, "In words, as `Target` takes it.")
      .def_readonly("expected", &MadeSet::expected, "Dots that a good picture of the whole board gives.")
      .def_readonly("left", &MadeSet::left, "The first left picture: `SeenBoard`.")
      .def_readonly("right", &MadeSet::right, "The first right picture.")
      .def_readonly("type", &MadeSet::type, "Lens model, the key `type` of the polar configuration.")
      .def_readonly("model", &MadeSet::model, "The same in words.")
      .def_readonly("calibration_format", &MadeSet::calibration_format,
                    "Of `calibration_formats`, or 'binary' for our own binary file.")
      .def_readonly("baseline", &MadeSet::baseline, "Length of the way between the cameras, board unit.")
      .def_property_readonly(
          "corners", [](const MadeSet& self) { return py::tuple(py::cast(self.corners)); },
          "Ids of the four chosen points: upper left, upper right, lower left, lower right.");
  defTexts(made, "guesses", &MadeSet::guesses, "What nobody said and was decided, a sentence each.");
  defTuple(made, "warnings", &MadeSet::warnings, "A `Warning` each, a tuple.");
  defText(made, "next", &MadeSet::next, "The command that checks the set.");
  made.def("to_json", &polarline::initJson, "One JSON object, schema 'polarline-init/1'.")
      .def("__str__", [](const MadeSet& self) { return textOf(polarline::initText(self)); });
}

}  // namespace

void addInit(py::module_& module) {
  addPieces(module);
  addMade(module);
  module.def(
      "init_set",
      [](const std::string& folder, std::vector<std::string> left, std::vector<std::string> right,
         const std::string& board, std::vector<std::string> calibration, const ImportOptions& import,
         const std::string& pairing, std::vector<std::string> limits, bool copy, bool force,
         const py::object& progress) {
        InitRequest request;
        request.folder = folder;
        request.left = std::move(left);
        request.right = std::move(right);
        request.board = board;
        request.calibration = std::move(calibration);
        request.import = import;
        request.pairing = polarline::pairByOf(pairing);
        request.limits = std::move(limits);
        request.copy = copy;
        request.force = force;
        const Turn turn;
        return told(progress, [&](const auto& tell) {
          request.progress = tell;
          return polarline::initSet(request);
        });
      },
      py::arg("folder"), py::arg("left"), py::arg("right"), py::arg("board"), py::arg("calibration"),
      py::arg("options"), py::kw_only(), py::arg("pairing"), py::arg("limits"), py::arg("copy"), py::arg("force"),
      py::arg("progress").none(true), "Makes a set; `polarline.init` is made of it.");
}

}  // namespace binding
