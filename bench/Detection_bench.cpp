#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "Tallowfen/src/RingTarget.h"
#include "bench/Quiet.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Render.h"
#include "tools/scene/TargetText.h"

namespace {

/// One detection of a rendered left image; points a second tell boards of different size apart.
void detect(benchmark::State& state, const std::string& preset) {
  const Quiet quiet;
  const scene::Scene scene = *scene::makePreset(preset);
  const cv::Mat image = scene::renderPair(scene, 0).left;
  kestrune::RingTarget target;
  target.loadConfig(scene::targetIni(scene));
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  for (auto _ : state) {
    if (!target.detect(image, points, unidentified, cv::Mat())) state.SkipWithError("nothing found");
    benchmark::DoNotOptimize(points.data());
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(points.size()));
}

BENCHMARK_CAPTURE(detect, ring_320, "ring_320")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detect, ring_640, "ring_640")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detect, big_1280, "big_1280")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detect, ring_small, "ring_small")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(detect, ring_default_board, "ring_default_board")->Unit(benchmark::kMillisecond);

}  // namespace
