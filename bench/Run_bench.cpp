#include <PolarLinePrecision.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "bench/Quiet.h"
#include "tools/scene/Presets.h"
#include "tools/scene/WriteScene.h"

namespace {

/// A whole run over a set in memory, every evaluation on, without files.
void run(benchmark::State& state, const std::string& preset) {
  const Quiet quiet;
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / ("bench_" + preset);
  scene::writeScene(*scene::makePreset(preset), folder.string());
  const auto file = [&](const char* name) { return (folder / name).string(); };
  ExportedCalibParams calibration;
  ReadCalibParams(file("calib.bin"), &calibration);
  ReadBoardGTFromTxt(file("board_gt.txt"), &calibration.boardPoints);
  ImagePairList images;
  ReadCalibImagelist(file("list.txt"), &images);
  for (auto _ : state) {
    std::vector<PolarResultRecord> results;
    const int status = CalPolarLinePrecisionOutMat(file("polar.txt").c_str(), file("target.ini").c_str(), calibration,
                                                   images, &results, nullptr, nullptr);
    if (status != 0) state.SkipWithError("the run failed");
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(images.at(0).size()));
  std::filesystem::remove_all(folder);
}

BENCHMARK_CAPTURE(run, ring_320, "ring_320")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(run, ring_640, "ring_640")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(run, poly_1920, "poly_1920")->Unit(benchmark::kMillisecond);

}  // namespace
