#include "polarline/check.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "python/src/Arrays.h"
#include "python/src/Diagnosed.h"
#include "python/src/Figures.h"
#include "python/src/Text.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::BoardInfo;
using polarline::CameraNumbers;
using polarline::Cameras;
using polarline::Check;
using polarline::FigureSummary;
using polarline::LimitResult;
using polarline::SetInput;
using polarline::Status;
using polarline::Verdict;

/// Members of a check that the document has together.
struct CheckedSet {
  py::object owner;
  const Check* check;
};
struct Extrinsics {
  std::array<double, 6> numbers{};
};
struct Summary {
  py::object owner;
  const Check* check;
};
struct RefinedSummary {
  py::object owner;
  const std::vector<FigureSummary>* figures;
};

void addCheckedSet(py::module_& module) {
  py::class_<SetInput> input(module, "Input", "A file, or a picture in memory, that a check read.");
  input.def_readonly("role", &SetInput::role, "'polar', 'target', 'calibration', ..., 'left/0', 'right/0'.");
  defText(input, "path", &SetInput::path, "As it was opened; empty for a picture in memory.");
  input.def_readonly("sha256", &SetInput::sha256, "Of the content; empty where it could not be read.");
  py::class_<CheckedSet>(module, "CheckedSet", "What was checked.")
      .def_property_readonly(
          "name", [](const CheckedSet& self) { return textOf(self.check->name); }, "Last folder of the path.")
      .def_property_readonly(
          "folder", [](const CheckedSet& self) { return textOf(self.check->folder); }, "As it was named.")
      .def_property_readonly(
          "id", [](const CheckedSet& self) { return self.check->id; },
          "SHA-256 over roles and contents: the same wherever the set lies.")
      .def_property_readonly(
          "inputs", [](const CheckedSet& self) { return tupleOf(self.check->inputs, self.owner); },
          "Every `Input`, a tuple.");
}

void addStatus(py::module_& module) {
  py::class_<Status> status(module, "Status", "How a check ended.");
  status.def_property_readonly(
      "code", [](const Status& self) { return self.code ? py::object(py::int_(*self.code)) : py::none(); },
      "Of the library; None where it was not asked.");
  status.def_readonly("name", &Status::name, "A stable word, such as 'success'.");
  defText(status, "text", &Status::text, "What happened; empty on success.");
  defText(status, "advice", &Status::advice, "What to do; empty on success, and where the text says what was wanted.");
  status.def_readonly("retry", &Status::retry, "It may succeed when tried again.")
      .def_readonly("exit_code", &Status::exit_code, "What the command would return.");
}

py::object extrinsicsOf(const Cameras& cameras) {
  if (cameras.extrinsics.empty()) return py::none();
  Extrinsics extrinsics;
  std::ranges::copy(cameras.extrinsics, extrinsics.numbers.begin());
  return py::cast(extrinsics);
}

void addExtrinsics(py::module_& module) {
  py::class_<Extrinsics> type(module, "Extrinsics", "X_right = Rz(rz) Rx(rx) Ry(ry) X_left + (tx, ty, tz).");
  static constexpr std::array kNames = {"rx", "ry", "rz", "tx", "ty", "tz"};
  for (std::size_t k = 0; k < kNames.size(); ++k) {
    type.def_property_readonly(
        kNames.at(k), [k](const Extrinsics& self) { return self.numbers.at(k); },
        k < 3 ? "Turn about the axis of its letter, radians." : "Of T along the axis of its letter, board unit.");
  }
}

void addCameras(py::module_& module) {
  py::class_<CameraNumbers> camera(module, "CameraNumbers", "One camera of a run, pixels.");
  camera.def_readonly("fx", &CameraNumbers::fx, "Focal length along the rows, pixels.")
      .def_readonly("fy", &CameraNumbers::fy, "Focal length along the columns, pixels.")
      .def_readonly("cx", &CameraNumbers::cx, "Column of the principal point, pixels.")
      .def_readonly("cy", &CameraNumbers::cy, "Row of the principal point, pixels.");
  defColumn(camera, "coefficients", &CameraNumbers::coefficients, "K1 to K6, P1, P2: an array of float64, shape (8,).");
  py::class_<Cameras> cameras(module, "Cameras", "The cameras of a run.");
  cameras.def_readonly("type", &Cameras::type, "The key `type` of the polar configuration.")
      .def_readonly("model", &Cameras::model, "'brown5', 'brown8', 'fisheye', 'poly', 'rectified' or 'other'.")
      .def_readonly("width", &Cameras::width, "Columns of the first left picture.")
      .def_readonly("height", &Cameras::height, "Rows of the first left picture.")
      .def_readonly("left", &Cameras::left, "The left camera.")
      .def_readonly("right", &Cameras::right, "The right camera.");
  cameras.def_property_readonly("extrinsics", &extrinsicsOf,
                                "The `Extrinsics`; None for pairs that were rectified elsewhere.");
}

void addBoardInfo(py::module_& module) {
  py::class_<BoardInfo>(module, "BoardInfo", "The board as the target configuration describes it.")
      .def_readonly("type", &BoardInfo::type, "1 and 2: ring boards; 3: four big dots.")
      .def_readonly("rows", &BoardInfo::rows, "Rows of dots.")
      .def_readonly("cols", &BoardInfo::cols, "Dots of a row.")
      .def_readonly("step", &BoardInfo::step, "Pitch along a row, board unit.")
      .def_readonly("step_y", &BoardInfo::step_y, "Pitch of the rows, board unit.")
      .def_readonly("points", &BoardInfo::points, "True positions that the set has.");
}

py::object summariesOf(const std::vector<FigureSummary>& figures, py::handle owner) {
  return mappingOf(
      figures, [](const auto& each) { return each.name; }, owner);
}

py::object refinedSummary(const Summary& self) {
  const auto& refined = self.check->refined_summary;
  return refined ? py::cast(RefinedSummary{self.owner, &*refined}) : py::none();
}

void addSummary(py::module_& module) {
  py::class_<FigureSummary>(module, "FigureSummary", "What the finished pairs that measured a figure come to.")
      .def_readonly("name", &FigureSummary::name, "Of the figure; 'tri_dis[0]' for an entry of a list.")
      .def_readonly("unit", &FigureSummary::unit, "Of the figure.")
      .def_readonly("count", &FigureSummary::count, "Pairs that measured it.")
      .def_readonly("mean", &FigureSummary::mean, "Over these pairs.")
      .def_readonly("sd", &FigureSummary::sd, "Of the sample; not a number for one pair.")
      .def_readonly("min", &FigureSummary::min, "Smallest.")
      .def_readonly("max", &FigureSummary::max, "Largest.")
      .def_readonly("worst_pair", &FigureSummary::worst_pair, "Index of the pair whose value is farthest from 0.")
      .def_readonly("sd_mean", &FigureSummary::sd_mean, "Standard error of the mean; not a number below five pairs.")
      .def_readonly("low95", &FigureSummary::low95, "Lower end of the mean's 95 % interval.")
      .def_readonly("high95", &FigureSummary::high95, "Its upper end.");
  py::class_<Summary>(module, "Summary", "The whole run.")
      .def_property_readonly(
          "pairs", [](const Summary& self) { return self.check->pairs.size(); }, "Pairs of the run.")
      .def_property_readonly(
          "finished", [](const Summary& self) { return self.check->finished(); }, "Finished ones.")
      .def_property_readonly(
          "figures", [](const Summary& self) { return summariesOf(self.check->summary, self.owner); },
          "Mapping from a figure's name to its `FigureSummary`.")
      .def_property_readonly("refined", &refinedSummary, "The `RefinedSummary`; None unless the check refines.");
  py::class_<RefinedSummary>(module, "RefinedSummary", "The whole run, from refined centres.")
      .def_property_readonly(
          "figures", [](const RefinedSummary& self) { return summariesOf(*self.figures, self.owner); },
          "Mapping from a figure's name to its `FigureSummary`.");
}

void addLimits(py::module_& module) {
  py::class_<LimitResult> limit(module, "LimitResult", "How a limit was kept.");
  limit.def_readonly("text", &LimitResult::text, "As it was given.")
      .def_property_readonly(
          "value",
          [](const LimitResult& self) { return self.value ? py::object(py::float_(*self.value)) : py::none(); },
          "The one farthest beyond the limit, or nearest to it; None: nobody measured it.")
      .def_property_readonly(
          "pair", [](const LimitResult& self) { return self.pair < 0 ? py::none() : py::object(py::int_(self.pair)); },
          "Whose value it is; None for one of the whole run.")
      .def_readonly("holds", &LimitResult::holds, "Whether it was kept.")
      .def_readonly("why", &LimitResult::why, "In words.");
}

const char* verdictOf(const Check& check) {
  if (check.verdict == Verdict::kPass) return "pass";
  return check.verdict == Verdict::kFail ? "fail" : "error";
}

py::object settingsOf(const Check& check) {
  const py::object loads = py::module_::import("json").attr("loads");
  py::dict settings;
  for (const polarline::Setting& setting : check.settings) settings[py::cast(setting.key)] = loads(setting.json);
  return py::module_::import("types").attr("MappingProxyType")(settings);
}

void addParts(py::class_<Check>& check) {
  check
      .def_property_readonly(
          "set",
          [](const py::object& self) {
            return CheckedSet{self, &self.cast<const Check&>()};
          },
          "The `CheckedSet`.")
      .def_readonly("status", &Check::status, "The `Status`.")
      .def_property_readonly("settings", &settingsOf, "Mapping of the polar configuration as the run took it.")
      .def_readonly("board", &Check::board, "The `BoardInfo`.")
      .def_readonly("cameras", &Check::cameras, "The `Cameras`.")
      .def_property_readonly(
          "summary",
          [](const py::object& self) {
            return Summary{self, &self.cast<const Check&>()};
          },
          "The `Summary`.")
      .def_property_readonly("verdict", &verdictOf, "'pass', 'fail' or 'error'.")
      .def_property_readonly("diagnosis", &diagnosisOf,
                             "The `Diagnosis`; None where none was asked for or there are no figures.");
  defTuple(check, "pairs", &Check::pairs, "A `Pair` each, a tuple in the order of the list.");
  defTuple(check, "limits", &Check::limits, "A `LimitResult` each, a tuple.");
  defTuple(check, "warnings", &Check::warnings, "A `Warning` each, a tuple.");
}

}  // namespace

void addCheck(py::module_& module) {
  addCheckedSet(module);
  addStatus(module);
  addExtrinsics(module);
  addCameras(module);
  addBoardInfo(module);
  addSummary(module);
  addLimits(module);
  py::class_<Check> check(module, "Check",
                          R"(A check and all that came of it, with the structure of the JSON document. Read-only.

Arrays that it gives share its memory and keep it alive.)");
  check.def_readonly("started", &Check::started, "UTC, ISO 8601.")
      .def_readonly("seconds", &Check::seconds, "How long it took.");
  addParts(check);
  check.def(
      "to_json",
      [](const Check& self) {
        const py::gil_scoped_release free;
        return polarline::toJson(self);
      },
      "The JSON document, schema 'polarline-check/1': the text that `polarline check --json` writes.");
  module.def(
      "empty_document", [] { return polarline::toJson(Check()); }, "The document of no check, which names the tool.");
  module.def("verdict_text", &polarline::verdictText, py::arg("check"), "The verdict and why, in a sentence.");
  module.def("main_figures", &polarline::mainFigures, "The figures that say most of a pair.");
  module.def("figure_text", &polarline::figureText, py::arg("value"), "A value as a table has room for it.");
}

}  // namespace binding
