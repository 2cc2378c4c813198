#include <pybind11/stl.h>

#include <utility>

#include "polarline/simulate.h"
#include "python/src/Arrays.h"
#include "python/src/CallBack.h"
#include "python/src/Text.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::PresetInfo;
using polarline::Simulated;
using polarline::SimulatedSet;
using polarline::SimulateOptions;
using polarline::TrueFigures;

/// Renders. The renderer shares no state with anything, so that it needs no turn.
template <typename Render>
auto rendered(SimulateOptions& options, const py::object& progress, Render render) {
  return told(progress, [&](const auto& tell) {
    options.progress = tell;
    return render();
  });
}

SimulateOptions optionsOf(std::optional<int> pairs, std::optional<std::uint64_t> seed, std::optional<double> noise) {
  SimulateOptions options;
  options.pairs = pairs;
  options.seed = seed;
  options.noise = noise;
  return options;
}

template <std::vector<cv::Mat> Simulated::*kSide>
py::tuple pictures(const Simulated& self) {
  const std::vector<cv::Mat>& side = self.*kSide;
  py::tuple all(side.size());
  for (std::size_t k = 0; k < side.size(); ++k) all[k] = viewOf(side[k]);
  return all;
}

void addSimulated(py::module_& module) {
  py::class_<Simulated> simulated(module, "Simulated",
                                  "A simulated set in memory: arrays, the texts of its files, and the truth.");
  simulated
      .def_property_readonly("left", &pictures<&Simulated::left>,
                             "The left pictures, a tuple of arrays of uint8 or uint16 that share its pixels.")
      .def_property_readonly("right", &pictures<&Simulated::right>, "The right pictures.")
      .def_property_readonly(
          "calibration_binary",
          [](const Simulated& self) {
            return py::bytes(reinterpret_cast<const char*>(self.binary.data()), self.binary.size());
          },
          "calib.bin");
  defText(simulated, "name", &Simulated::name, "Of the scene.");
  defText(simulated, "polar", &Simulated::polar, "polar.txt");
  defText(simulated, "target", &Simulated::target, "target.ini");
  defText(simulated, "calibration", &Simulated::calibration, "calib.json; empty for polynomial cameras.");
  defText(simulated, "board", &Simulated::board, "board_gt.txt");
  defText(simulated, "rectified", &Simulated::rectified,
          "rectified.txt; empty unless the pairs need no rectification.");
  defText(simulated, "truth_json", &Simulated::truth, "truth.json; `truth` is the same as a dictionary.");
}

void addWritten(py::module_& module) {
  py::class_<SimulatedSet> written(module, "SimulatedSet", "A simulated set that was written.");
  defText(written, "name", &SimulatedSet::name, "Of the scene.");
  defText(written, "scene", &SimulatedSet::scene, "As it was named.");
  defText(written, "folder", &SimulatedSet::folder, "As it was named.");
  written.def_readonly("pairs", &SimulatedSet::pairs, "Pairs of pictures.")
      .def_readonly("seed", &SimulatedSet::seed, "Of the noise.");
  py::class_<TrueFigures>(module, "TrueFigures", "What a library without any error would measure of a pair.")
      .def_readonly("points", &TrueFigures::points, "Dots that are wholly in both pictures.")
      .def_readonly("dy_means", &TrueFigures::dy_means, "Mean of the absolute row differences, pixels.")
      .def_readonly("dy_min", &TrueFigures::dy_min, "The smallest.")
      .def_readonly("dy_max", &TrueFigures::dy_max, "The largest.")
      .def_readonly("zero_dis", &TrueFigures::zero_dis, "Mean distance of the dots from the left camera, board unit.")
      .def_property_readonly(
          "pol_dis", [](const TrueFigures& self) { return py::tuple(py::cast(self.pol_dis)); },
          "Measured less true length between the four chosen points, board unit: 6 of them.");
}

}  // namespace

void addSimulation(py::module_& module) {
  addSimulated(module);
  addWritten(module);
  py::class_<PresetInfo>(module, "Preset", "A scene that has a name.")
      .def_readonly("name", &PresetInfo::name, "The name.")
      .def_readonly("note", &PresetInfo::note, "What it shows, in a line.");
  module.def(
      "simulate_images",
      [](const std::string& scene, std::optional<int> pairs, std::optional<std::uint64_t> seed,
         std::optional<double> noise, const py::object& progress) {
        SimulateOptions options = optionsOf(pairs, seed, noise);
        return rendered(options, progress, [&] { return polarline::simulateImages(scene, options); });
      },
      py::arg("scene"), py::kw_only(), py::arg("pairs").none(true), py::arg("seed").none(true),
      py::arg("noise").none(true), py::arg("progress").none(true),
      "A set in memory; `polarline.simulate` is made of it.");
  module.def(
      "simulate_set",
      [](const std::string& scene, const std::string& folder, std::optional<int> pairs,
         std::optional<std::uint64_t> seed, std::optional<double> noise, bool force, const py::object& progress) {
        SimulateOptions options = optionsOf(pairs, seed, noise);
        options.force = force;
        return rendered(options, progress, [&] { return polarline::simulate(scene, folder, options); });
      },
      py::arg("scene"), py::arg("folder"), py::kw_only(), py::arg("pairs").none(true), py::arg("seed").none(true),
      py::arg("noise").none(true), py::arg("force"), py::arg("progress").none(true),
      "A set in a folder; `polarline.simulate` is made of it.");
  module.def(
      "presets", [] { return py::tuple(py::cast(polarline::presets())); },
      "The scenes that have a name, a tuple of `Preset`.");
  module.def(
      "scene_file",
      [](const std::string& scene, std::optional<int> pairs, std::optional<std::uint64_t> seed,
         std::optional<double> noise) { return polarline::sceneFile(scene, optionsOf(pairs, seed, noise)); },
      py::arg("scene"), py::kw_only(), py::arg("pairs").none(true), py::arg("seed").none(true),
      py::arg("noise").none(true), "A scene as a file that tells everything; `polarline.scene_file` is made of it.");
  module.def(
      "truth_of", [](const std::string& folder) { return py::tuple(py::cast(polarline::truthOf(folder))); },
      py::arg("folder"), "The true figures of a simulated set; `polarline.truth_of` is made of it.");
}

}  // namespace binding
