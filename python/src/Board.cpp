#include "polarline/board.h"

#include <pybind11/stl.h>

#include <map>
#include <stdexcept>

#include "python/src/Arrays.h"
#include "python/src/Text.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::BoardDescription;
using polarline::BoardFormat;
using polarline::BoardRings;
using polarline::Paper;
using polarline::PrintedBoard;

const std::map<std::string, BoardRings> kRings = {
    {"small", BoardRings::kSmall}, {"big", BoardRings::kBig}, {"mixed", BoardRings::kMixed}};
const std::map<std::string, Paper> kPapers = {
    {"A4", Paper::kA4}, {"A3", Paper::kA3}, {"A2", Paper::kA2}, {"A1", Paper::kA1}, {"fit", Paper::kFit}};

/// The value of a word; a `ValueError` tells the words there are.
template <typename Value>
Value valueOf(const std::map<std::string, Value>& words, const std::string& name, const std::string& word) {
  const auto found = words.find(word);
  if (found != words.end()) return found->second;
  std::string all;
  for (const auto& [each, value] : words) all += (all.empty() ? "" : ", ") + each;
  throw py::value_error(name + ": found " + word + ", wanted one of " + all);
}

py::array_t<double> pointsOf(const BoardDescription& board) {
  const std::vector<polarline::BoardPoint> points = polarline::boardPoints(board);
  py::array_t<double> array({static_cast<py::ssize_t>(points.size()), py::ssize_t{3}});
  auto cells = array.mutable_unchecked<2>();
  for (std::size_t k = 0; k < points.size(); ++k) {
    const auto row = static_cast<py::ssize_t>(k);
    cells(row, 0) = points[k].x;
    cells(row, 1) = points[k].y;
    cells(row, 2) = points[k].z;
  }
  return array;
}

BoardDescription boardOf(const py::object& text) {
  if (!py::isinstance<py::str>(text))
    throw py::type_error("text: found " + std::string(py::str(py::type::of(text).attr("__name__"))) +
                         "; a board in words was wanted");
  return polarline::parseBoard(text.cast<std::string>());
}

void addTarget(py::module_& module) {
  py::class_<BoardDescription>(module, "Target", R"(A board of dots, as the detector and the printer know it. Read-only.

Parameters
----------
text : str
    The board in words, KIND:COLSxROWS:STEP[:NAME=VALUE...], such as 'rings-small:17x15:14'. KIND is rings-small,
    rings-big, rings-mixed or dots; NAME is inner, outter, step_y, dot, numbering or marks.

Raises
------
InputError
    For a piece that is none, and for a board that the detector could not number.)")
      .def(py::init(&boardOf), py::arg("text"))
      .def_static(
          "read",
          [](const py::object& path, const std::string& rings) {
            const py::object bytes = py::module_::import("os").attr("fsencode")(path);
            const BoardRings drawn = valueOf(kRings, "rings", rings);
            return aside([&] { return polarline::readBoard(bytes.cast<std::string>(), drawn); });
          },
          py::arg("path"), py::arg("rings") = "small",
          "Reads a target configuration (.ini, .json, .yml, .yaml, .xml). `rings` tells which rings a ring board is\n"
          "printed with: 'small', 'big' or 'mixed'. Raises `InputError`.")
      .def_property_readonly("text", &polarline::boardText, "The board in words.")
      .def_readonly("rows", &BoardDescription::rows, "Rows of dots.")
      .def_readonly("cols", &BoardDescription::cols, "Dots of a row.")
      .def_readonly("step", &BoardDescription::step, "Pitch along a row, board unit.")
      .def_property_readonly(
          "step_y", [](const BoardDescription& self) { return self.step_y == 0.0 ? self.step : self.step_y; },
          "Pitch of the rows, board unit.")
      .def_property_readonly("points", &pointsOf,
                             "True position of every place by id: float64, shape (rows * cols, 3), board unit.")
      .def_property_readonly("detectable_points", &polarline::detectablePoints,
                             "How many ids a good picture gives at most.")
      .def("to_ini", &polarline::targetIni, "The target configuration, to be saved under a name that ends in 'ini'.")
      .def("to_board_gt", &polarline::boardGroundTruthText, "The true positions as text, a line of x, y and z each.")
      .def("__repr__", [](const BoardDescription& self) { return "Target('" + polarline::boardText(self) + "')"; });
}

PrintedBoard printed(const BoardDescription& board, const std::string& format, const std::string& paper,
                     const std::string& title, double dpi) {
  polarline::BoardPrint print;
  print.format = polarline::boardFormat("board." + format);
  print.paper = valueOf(kPapers, "paper", paper);
  print.title = title;
  print.dpi = dpi;
  return aside([&] { return polarline::printBoard(board, print); });
}

}  // namespace

void addBoard(py::module_& module) {
  addTarget(module);
  py::class_<PrintedBoard>(module, "PrintedBoard", "A board in true size; a board unit is a millimetre.")
      .def_property_readonly(
          "data", [](const PrintedBoard& self) { return py::bytes(self.bytes); }, "The whole file.")
      .def_readonly("paper", &PrintedBoard::paper, "'A4', ... or 'own size'.")
      .def_readonly("width", &PrintedBoard::width, "Of the sheet, millimetres.")
      .def_readonly("height", &PrintedBoard::height, "Of the sheet, millimetres.");
  module.def("print_board", &printed, py::arg("target"), py::kw_only(), py::arg("format"), py::arg("paper"),
             py::arg("title"), py::arg("dpi"), "A printed board; `polarline.board` is made of it.");
  module.def("board_kinds", &polarline::boardKinds, "The kinds that the text of a board begins with.");
}

}  // namespace binding
