#include "check/run/RunWarps.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <opencv2/imgcodecs.hpp>

#include "support/CopiedSet.h"

namespace polarline {
namespace {

RunInputs inputsOf(const CopiedSet& set) {
  RunInputs inputs;
  Check check;
  readInputs(set.set(), {}, inputs, check);
  return inputs;
}

/// A rectified picture that a run wrote.
cv::Mat written(const std::filesystem::path& out, const char* name) {
  for (const auto& entry : std::filesystem::recursive_directory_iterator(out)) {
    if (entry.path().filename() == name) return cv::imread(entry.path().string(), cv::IMREAD_GRAYSCALE);
  }
  return {};
}

class RunWarpsOfASet : public ::testing::TestWithParam<const char*> {};

TEST_P(RunWarpsOfASet, RectifyAsTheRunDoes) {
  const CopiedSet set(RenderedSet::of(GetParam()));
  set.append("polar.txt", "\nsavepolarline: 1\ndy_bias_switch: 1\n");
  const TempFolder folder;
  CheckOptions options;
  options.out = folder.file("out");
  options.pairs = {0, 0};
  ASSERT_TRUE(set.check(options).pairs.at(0).finished);
  const RunInputs inputs = inputsOf(set);
  RunWarps warps(inputs);
  const cv::Mat left = cv::imread(set.file("left_0.png"), cv::IMREAD_GRAYSCALE);
  const cv::Mat right = cv::imread(set.file("right_0.png"), cv::IMREAD_GRAYSCALE);
  const PairWarps pair = warps.of(left.size());
  EXPECT_EQ(cv::norm(pair.left(left), written(options.out, "0_left.png"), cv::NORM_INF), 0.0);
  EXPECT_EQ(cv::norm(pair.right(right), written(options.out, "0_right.png"), cv::NORM_INF), 0.0);
}

INSTANTIATE_TEST_SUITE_P(Lenses, RunWarpsOfASet, ::testing::Values("ring_320", "fisheye_1280", "poly_1920"));

TEST(RunWarps, AreNoneOfARunThatCropsOrRectifiesNothing) {
  const CopiedSet cropped(RenderedSet::of("ring_320"));
  cropped.append("polar.txt", "\ncrop: 1\ncropped_cols: 300\ncropped_rows: 240\n");
  const RunInputs crops = inputsOf(cropped);
  EXPECT_FALSE(RunWarps(crops).of({320, 256}).left);
  const CopiedSet frames(MemoryRun::twoFrames());
  const RunInputs of_frames = inputsOf(frames);
  EXPECT_FALSE(RunWarps(of_frames).of({1280, 1024}).left);
}

}  // namespace
}  // namespace polarline
