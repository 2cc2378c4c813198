#include <fmt/format.h>

#include <chrono>
#include <cstdlib>
#include <map>

#include "tools/accuracy/Statistics.h"
#include "tools/scene/Presets.h"

using namespace accuracy;

int main(int argc, char** argv) {
  const double noise = argc > 2 ? std::atof(argv[2]) : 0.8;
  const double tilt = argc > 3 ? std::atof(argv[3]) : 0;
  scene::PresetOptions options;
  options.read_noise = noise;
  auto recipe = *scene::presetRecipe(argv[1], options);
  if (tilt != 0) recipe.poses = {scene::PoseWish{tilt, 10, 3, 0.9}};
  if (std::getenv("SS")) recipe.optics.supersampling = std::atoi(std::getenv("SS"));
  const scene::Scene scene = scene::sceneOf(recipe);
  std::vector<Sight> sights;
  std::vector<const Sight*> all;
  std::vector<RefinedPicture> pictures;
  std::vector<std::vector<Measured>> refined, detected, ellipses;
  double t_detect = 0, t_refine = 0;
  for (std::size_t p = 0; p < scene.left_from_board.size(); ++p)
    for (int s = 0; s < 2; ++s) sights.push_back(sightOf(scene, p, s == 1));
  std::map<int, int> states;
  for (const Sight& sight : sights) {
    all.push_back(&sight);
    auto t0 = std::chrono::steady_clock::now();
    auto places = detectedPlaces(sight);
    auto t1 = std::chrono::steady_clock::now();
    if (places.empty() || argc > 4) places = nearTruePlaces(sight, 0.3);
    auto t1b = std::chrono::steady_clock::now();
    const auto picture = refineDots(sight.picture, places, calibratedCamera(sight.camera));
    auto t2 = std::chrono::steady_clock::now();
    t_detect += std::chrono::duration<double>(t1 - t0).count();
    t_refine += std::chrono::duration<double>(t2 - t1b).count();
    for (auto& d : picture.dots) {
      ++states[static_cast<int>(d.state)];
      const auto& t = sight.dots[size_t(d.id)];
      double e = std::hypot(d.x - t.centre.x, d.y - t.centre.y);
      if (std::getenv("LIST") && (d.state != polarline::DotState::kRefined || e > 5 * std::sqrt(d.xx + d.yy)))
        fmt::print("  id {} ({},{}) state {} err {:.4f} sd {:.4f} at {:.1f} {:.1f} r {:.2f} marker {} meas {}\n", d.id,
                   d.id % scene.board.cols, d.id / scene.board.cols, static_cast<int>(d.state), e,
                   std::sqrt(d.xx + d.yy), d.x, d.y, t.radius, t.marker, t.measurable);
    }
    pictures.push_back(picture);
    refined.push_back(refinedCentres(picture));
    detected.push_back(placesOf(places));
    if (picture.pose) fmt::print("pose rms {:.4f}\n", picture.pose->rms);
  }
  const Errors r = errorsOf(all, refined), d = errorsOf(all, detected);
  const Calibration c = calibrationOf(all, pictures);
  fmt::print(
      "{:20} dots {:5} rms {:.4f} worst {:.4f} mean {:+.4f} {:+.4f} xCRB {:.2f} obs/pred {:.2f} | det rms {:.4f} worst "
      "{:.3f} | ms det {:.1f} ref {:.1f} states",
      argv[1], r.dots, r.rms, r.worst, r.mean.x, r.mean.y, r.by_bound, c.observed_by_predicted, d.rms, d.worst,
      1e3 * t_detect / double(all.size()), 1e3 * t_refine / double(all.size()));
  for (auto [k, v] : states) fmt::print(" {}:{}", k, v);
  fmt::print("\n");
}
