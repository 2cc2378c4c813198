// A caller's callback that throws, at each of its calls.
#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>

#include "support/FigureText.h"
#include "support/FolderContents.h"
#include "support/OpenFiles.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"

namespace {

/// Of no family that anybody might catch.
struct Thrown {
  std::size_t call;
};

struct CallbackRun {
  const char* name;
  bool frame;
  const char* first;         ///< Name of the first run's summary.
  const char* next;          ///< Name of the next one's into the same folder.
  std::array<int, 6> lines;  ///< Lines that the next summary has when the k-th call throws.
};

/// Two pairs, so that there is a callback between them.
scene::Scene twoPairs(bool frame) {
  return small_scene::withSecondPose(frame ? small_scene::frame() : small_scene::dots());
}

class ThrowingCallback : public ::testing::TestWithParam<CallbackRun> {
 protected:
  RenderedSet set{twoPairs(GetParam().frame)};
  ExportedCalibParams calibration = set.calibration();
  ImagePairList images = set.images();
  std::string polar = set.polarText();
  TempFolder folder;
  std::vector<PolarResultRecord> results;
  std::size_t calls = 0;
  ConsoleCapture quiet;

  std::int32_t run(std::size_t throwing_call) {
    calls = 0;
    const ProgressCallback progress = [&](float /*percentage*/) {
      if (++calls == throwing_call) throw Thrown{calls};
      return true;
    };
    return CalPolarLinePrecisionOutMat(polar.c_str(), set.file("target.ini").c_str(), calibration, images, &results,
                                       &progress, folder.path().c_str());
  }
  void storeAnErrorText() {
    std::vector<PolarResultRecord> none;
    CalPolarLinePrecisionOutMat("", "", {}, {}, &none, nullptr, nullptr);
    ASSERT_EQ(errorText(), "Read image Error!");
  }
  void takeAwayAllBut(const std::map<std::string, std::string>& kept) const {
    for (const auto& [name, bytes] : contentsOf(folder.path()))
      if (!kept.contains(name)) std::filesystem::remove(folder.path() / name);
  }
};

TEST_P(ThrowingCallback, IsHeardByTheCallerAndLeavesNothingBehind) {
  storeAnErrorText();
  ASSERT_EQ(run(0), 0);
  ASSERT_EQ(results.size(), 2U);
  const std::string figures = FigureText::of(results);
  const auto files = contentsOf(folder.path());
  const std::size_t good_calls = calls;
  ASSERT_EQ(good_calls, 6U) << "0.001, 0.002, 0.003, two pairs, 100";

  for (std::size_t k = 1; k <= good_calls; ++k) {
    SCOPED_TRACE("call " + std::to_string(k));
    results = std::vector<PolarResultRecord>(1);
    results[0].dy_means = 4711.0;
    const std::string held = FigureText::of(results);
    const std::size_t open = openFiles();
    try {
      run(k);
      FAIL() << "no exception";
    } catch (const Thrown& thrown) {
      EXPECT_EQ(thrown.call, k);
    }
    EXPECT_EQ(openFiles(), open);
    EXPECT_EQ(errorText(), "Read image Error!");
    // At 100 the results are filled already, as they are when the callback then says no.
    EXPECT_EQ(FigureText::of(results), k == good_calls ? figures : held);
    auto left = contentsOf(folder.path());
    for (const auto& [name, bytes] : files) {
      if (name.starts_with("align_data")) {
        EXPECT_EQ(left[name], bytes) << name;
      }
    }
    const std::string& summary = left[GetParam().next];
    EXPECT_TRUE(files.at(GetParam().first).starts_with(summary)) << summary;
    EXPECT_EQ(std::count(summary.begin(), summary.end(), '\n'), GetParam().lines.at(k - 1));

    takeAwayAllBut(files);
    ASSERT_EQ(run(0), 0);
    EXPECT_EQ(FigureText::of(results), figures);
    EXPECT_EQ(contentsOf(folder.path())[GetParam().next], files.at(GetParam().first));
    takeAwayAllBut(files);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Runs, ThrowingCallback,
    ::testing::Values(CallbackRun{"ImageSet", false, "align_data_0.csv", "align_data_1.csv", {0, 0, 1, 1, 2, 4}},
                      CallbackRun{"Frames", true, "frame_result.csv", "frame_result.csv", {4, 4, 1, 1, 2, 4}}),
    [](const auto& run) { return run.param.name; });

}  // namespace
