#include "polarline/simulate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <opencv2/imgcodecs.hpp>
#include <stdexcept>

#include "polarline/errors.h"
#include "support/FullDevice.h"
#include "support/TempFolder.h"
#include "tools/scene/Presets.h"

namespace {

namespace fs = std::filesystem;

using polarline::simulate;
using polarline::SimulateOptions;

SimulateOptions onePair() {
  SimulateOptions options;
  options.pairs = 1;
  return options;
}

/// A scene that renders at once.
constexpr const char* kSmall = R"({"preset": "ring_320", "name": "small", "rig": {"width": 160, "height": 128},
    "optics": {"supersampling": 2}, "pairs": 1})";

std::map<std::string, std::string> filesOf(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& file : fs::directory_iterator(folder))
    files[file.path().filename().string()] = TempFolder::contentOf(file.path());
  return files;
}

TEST(Simulate, ListsEveryPreset) {
  const auto presets = polarline::presets();
  ASSERT_EQ(presets.size(), scene::presetNames().size());
  EXPECT_EQ(presets.front().name, "ring_320");
  EXPECT_EQ(presets.front().note, "17 x 15 small rings, 320 x 256");
}

TEST(Simulate, APrintedPresetMakesTheSameSetToTheByte) {
  const TempFolder folder;
  for (const char* preset : {"ring_320", "rectified_1280"}) {
    const std::string file = folder.write("scene.json", polarline::sceneFile(preset, onePair()));
    simulate(preset, folder.file("a"), onePair());
    simulate(file, folder.file("b"));
    EXPECT_TRUE(filesOf(folder.file("a")) == filesOf(folder.file("b"))) << preset;
    fs::remove_all(folder.file("a"));
    fs::remove_all(folder.file("b"));
  }
}

TEST(Simulate, FilesAreWhatTheSameSceneIsInMemory) {
  const TempFolder folder;
  const std::string file = folder.write("scene.json", kSmall);
  const polarline::SimulatedSet written = simulate(file, folder.file("set"));
  const polarline::Simulated set = polarline::simulateImages(file);
  EXPECT_EQ(written.name, "small");
  EXPECT_EQ(written.pairs, 1U);
  EXPECT_EQ(written.seed, 1U);
  EXPECT_EQ(set.name, "small");
  EXPECT_EQ(set.polar, folder.read("set/polar.txt"));
  EXPECT_EQ(set.target, folder.read("set/target.ini"));
  EXPECT_EQ(set.calibration, folder.read("set/calib.json"));
  EXPECT_EQ(std::string(set.binary.begin(), set.binary.end()), folder.read("set/calib.bin"));
  EXPECT_EQ(set.board, folder.read("set/board_gt.txt"));
  EXPECT_EQ(set.truth, folder.read("set/truth.json"));
  EXPECT_EQ(set.rectified, "");
  ASSERT_EQ(set.left.size(), 1U);
  ASSERT_EQ(set.right.size(), 1U);
  const cv::Mat read = cv::imread(folder.file("set/right_0.png"), cv::IMREAD_UNCHANGED);
  EXPECT_EQ(cv::norm(read, set.right[0], cv::NORM_INF), 0.0);
}

TEST(Simulate, SeedAndNoiseChangeThePicturesOnly) {
  const TempFolder folder;
  const std::string file = folder.write("scene.json", kSmall);
  SimulateOptions other;
  other.seed = 2;
  SimulateOptions silent;
  silent.noise = 0.0;
  const auto usual = polarline::simulateImages(file);
  EXPECT_GT(cv::norm(usual.left[0], polarline::simulateImages(file, other).left[0], cv::NORM_INF), 0.0);
  EXPECT_GT(cv::norm(usual.left[0], polarline::simulateImages(file, silent).left[0], cv::NORM_INF), 0.0);
  EXPECT_EQ(usual.calibration, polarline::simulateImages(file, silent).calibration);
}

TEST(Simulate, TellsTheProgressOfEachPair) {
  const TempFolder folder;
  SimulateOptions options;
  options.pairs = 2;
  std::vector<std::pair<std::size_t, std::size_t>> told;
  options.progress = [&](std::size_t done, std::size_t all) { told.emplace_back(done, all); };
  polarline::simulateImages(folder.write("scene.json", kSmall), options);
  simulate(folder.file("scene.json"), folder.file("set"), options);
  EXPECT_THAT(told,
              testing::ElementsAre(testing::Pair(1, 2), testing::Pair(2, 2), testing::Pair(1, 2), testing::Pair(2, 2)));
}

TEST(Simulate, WhatEndsItLeavesNothing) {
  const TempFolder folder;
  const std::string file = folder.write("scene.json", kSmall);
  SimulateOptions options;
  options.progress = [](std::size_t, std::size_t) { throw std::runtime_error("enough"); };
  EXPECT_THROW(simulate(file, folder.file("set"), options), std::runtime_error);
  EXPECT_EQ(filesOf(folder.path()).size(), 1U);
}

TEST(Simulate, AFullDeviceIsAnOutputErrorAndLeavesNothing) {
  const TempFolder folder;
  const std::string file = folder.write("scene.json", kSmall);
  {
    const FullDevice full;
    EXPECT_THROW(simulate(file, folder.file("set")), polarline::OutputError);
  }
  EXPECT_EQ(filesOf(folder.path()).size(), 1U);
}

struct Wrong {
  const char* scene;
  SimulateOptions options;
  const char* message;
};

class SimulateRefuses : public testing::TestWithParam<Wrong> {};

TEST_P(SimulateRefuses, WhatCannotBeUsed) {
  try {
    polarline::simulateImages(GetParam().scene, GetParam().options);
    FAIL() << "accepted";
  } catch (const polarline::InputError& error) {
    EXPECT_THAT(error.what(), testing::StartsWith(GetParam().message));
  }
}

SimulateOptions withPairs(int pairs) {
  SimulateOptions options;
  options.pairs = pairs;
  return options;
}

SimulateOptions withNoise(double noise) {
  SimulateOptions options;
  options.noise = noise;
  return options;
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, SimulateRefuses,
    testing::Values(Wrong{"no_such_preset", {}, "no_such_preset: found no preset and no file of that name, wanted"},
                    Wrong{"", {}, "found no preset"},
                    Wrong{"ring_320", withPairs(0), "pairs: found 0, wanted a whole number from 1 to 1000"},
                    Wrong{"ring_320", withPairs(1001), "pairs: found 1001"},
                    Wrong{"ring_320", withNoise(-0.5), "noise: found -0.5, wanted a number from 0 to 255"},
                    Wrong{"ring_320", withNoise(std::nan("")), "noise: found nan"}));

}  // namespace
