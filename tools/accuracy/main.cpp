#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ctime>
#include <exception>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "tools/accuracy/Rivals.h"
#include "tools/accuracy/Statistics.h"
#include "tools/scene/Presets.h"

namespace {

using namespace accuracy;

struct Settings {
  std::vector<std::string> presets;
  double noise = 0.8;
  double tilt = 0.0;  ///< Degrees about x; 0: as the preset has it.
  bool optical = false;
  int samples = 0;  ///< Along a side of a pixel that an edge crosses; 0: as the preset has it.
  int repeats = 3;
};

/// All that was measured of a scene.
struct Row {
  std::vector<Sight> sights;
  std::vector<RefinedPicture> pictures;
  std::vector<std::vector<Measured>> refined, detected, centroid, grid;
  double detection = 0.0, refinement = 0.0;  ///< Processor time, milliseconds a picture.
  int places = 0;
};

double milliseconds() { return 1e3 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// Processor time of some work, milliseconds: the least of some runs, as whatever else the machine does only adds to
/// it.
template <typename Work>
double timeOf(int repeats, const Work& work) {
  double least = std::numeric_limits<double>::infinity();
  for (int run = 0; run < repeats; ++run) {
    const double begin = milliseconds();
    work();
    least = std::min(least, milliseconds() - begin);
  }
  return least;
}

void measure(Row& row, const Sight& sight, int repeats) {
  std::vector<DotPlace> places;
  row.detection += timeOf(repeats, [&] { places = detectedPlaces(sight); });
  row.detected.push_back(placesOf(places));
  if (places.empty()) places = nearTruePlaces(sight, 0.3);
  const CalibratedCamera camera = calibratedCamera(sight.camera);
  RefinedPicture refined;
  row.refinement += timeOf(repeats, [&] { refined = refineDots(sight.picture, places, camera); });
  row.pictures.push_back(std::move(refined));
  row.places += static_cast<int>(places.size());
  row.refined.push_back(refinedCentres(row.pictures.back()));
  row.centroid.push_back(centroids(sight));
  row.grid.push_back(circlesGrid(sight));
}

Row measured(const std::string& preset, const Settings& settings) {
  scene::PresetOptions options;
  options.read_noise = settings.noise;
  auto recipe = scene::presetRecipe(preset, options).value();
  if (settings.tilt != 0.0) recipe.poses = {scene::PoseWish{settings.tilt, 10.0, 3.0, 0.9}};
  if (settings.samples != 0) recipe.optics.supersampling = settings.samples;
  const scene::Scene scene = scene::sceneOf(recipe);
  Row row;
  for (std::size_t pose = 0; pose < scene.left_from_board.size(); ++pose) {
    for (const bool right : {false, true}) row.sights.push_back(sightOf(scene, pose, right, settings.optical));
  }
  for (const Sight& sight : row.sights) measure(row, sight, settings.repeats);
  return row;
}

std::string rmsText(const Errors& errors) { return errors.dots == 0 ? "-" : fmt::format("{:.4f}", errors.rms); }

void print(const std::string& preset, const Row& row) {
  std::vector<const Sight*> sights;
  for (const Sight& sight : row.sights) sights.push_back(&sight);
  const Errors refined = errorsOf(sights, row.refined);
  const Calibration calibration = calibrationOf(sights, row.pictures);
  const auto pictures = static_cast<double>(sights.size());
  fmt::print(
      "| {} | {} of {} | {:.4f} | {:+.4f} {:+.4f} | {:.2f} | {:.2f} | {} | {} | {} | {:.1f} | {:.1f} | {:.2f} |\n",
      preset, refined.dots, row.places, refined.rms, refined.mean.x, refined.mean.y, refined.by_bound,
      calibration.observed_by_predicted, rmsText(errorsOf(sights, row.detected)),
      rmsText(errorsOf(sights, row.centroid)), rmsText(errorsOf(sights, row.grid)), row.detection / pictures,
      row.refinement / pictures, row.refinement / row.detection);
}

}  // namespace

int main(int argc, char** argv) try {
  Settings settings;
  CLI::App app("How near refined centres come to the truth of rendered pictures");
  app.add_option("presets", settings.presets, "Scenes; all that a detection numbers when left out");
  app.add_option("--noise", settings.noise, "Greys");
  app.add_option("--tilt", settings.tilt, "Degrees about x");
  app.add_flag("--optical", settings.optical, "Blur before the pixels");
  app.add_option("--samples", settings.samples, "Along a side of a pixel that an edge crosses")
      ->check(CLI::PositiveNumber);
  app.add_option("--repeat", settings.repeats, "Times are the least of so many runs")->check(CLI::PositiveNumber);
  CLI11_PARSE(app, argc, argv);
  if (settings.presets.empty())
    settings.presets = {"ring_320",  "big_320",    "ring_640",       "ring_640_big",    "ring_640_bgr",
                        "big_640",   "big_1280",   "big_1280_10bit", "big_1280_bright", "fisheye_1280",
                        "poly_1920", "ring_mixed", "ring_big",       "big_2448",        "ring_default_board"};
  fmt::print(
      "| scene | refined | rms, px | mean x, y | by bound | observed by predicted | detected | centroid | "
      "findCirclesGrid | detection, ms | refining, ms | refining by detection "
      "|\n|---|---|---|---|---|---|---|---|---|---|---|---|\n");
  for (const std::string& preset : settings.presets) print(preset, measured(preset, settings));
} catch (const std::exception& error) {
  fmt::print(stderr, "{}\n", error.what());
  return 1;
}
