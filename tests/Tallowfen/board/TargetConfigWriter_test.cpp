#include "Tallowfen/src/board/TargetConfigWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <system_error>

#include "MorvenKit/ErrorCategories.h"
#include "Tallowfen/src/board/TargetConfigReader.h"
#include "tests/support/TempFolder.h"

namespace {

using kestrune::readStorageConfig;
using kestrune::RingTargetConfig;
using kestrune::writeStorageConfig;
using kestrune::morvenkit::DetectorErrc;

RingTargetConfig bigDotBoard() {
  RingTargetConfig config;
  config.seed = 3;
  config.rows = 35;
  config.cols = 37;
  config.inner_width = 5;
  config.inner_height = 7;
  config.outter_width = 9;
  config.outter_height = 11;
  config.step = 17.3F;
  config.step_y = 12.0F;
  config.board_type = 3;
  config.ratio_solid = 0.31F;
  config.ratio_big_ring = 0.41F;
  config.id_method = 1;
  config.max_sigma = 0.5F;
  config.detection_id = {1, 2, 3, 4};
  return config;
}

class TargetConfigWriterFiles : public testing::TestWithParam<const char*> {};

TEST_P(TargetConfigWriterFiles, GeometryComesBackAndDetectionSettingsAreLost) {
  const TempFolder folder;
  const std::string path = folder.file(std::string("saved.") + GetParam());
  writeStorageConfig(path, bigDotBoard());
  const RingTargetConfig read = readStorageConfig(path);
  EXPECT_EQ(read.seed, 3);
  EXPECT_EQ(read.rows, 35);
  EXPECT_EQ(read.cols, 37);
  EXPECT_EQ(read.inner_width, 5);
  EXPECT_EQ(read.inner_height, 7);
  EXPECT_EQ(read.outter_width, 9);
  EXPECT_EQ(read.outter_height, 11);
  EXPECT_EQ(read.step, 17.3F);
  EXPECT_EQ(read.board_type, 3);
  EXPECT_EQ(read.ratio_solid, 0.31F);
  EXPECT_EQ(read.ratio_big_ring, 0.41F);
  EXPECT_EQ(read.step_y, 0.0F);
  EXPECT_EQ(read.id_method, 0);
  EXPECT_EQ(read.max_sigma, 1.0F);
  EXPECT_TRUE(read.detection_id.empty());
}

INSTANTIATE_TEST_SUITE_P(Endings, TargetConfigWriterFiles, testing::Values("json", "xml", "yml", "yaml"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST(TargetConfigWriter, KeysStandInTheirOrder) {
  const TempFolder folder;
  const std::string path = folder.file("saved.json");
  writeStorageConfig(path, bigDotBoard());
  const cv::FileStorage storage(path, cv::FileStorage::READ);
  EXPECT_EQ(storage["patterns"].size(), 1U);
  std::vector<std::string> keys;
  for (const auto& key : storage["patterns"][0].keys()) keys.push_back(key);
  const std::string text = folder.read("saved.json");
  std::size_t last = 0;
  const std::vector<std::string> expected = {"seed",         "rows",         "cols",          "inner_width",
                                             "inner_height", "outter_width", "outter_height", "board_type",
                                             "step",         "ratio_solid",  "ratio_big_ring"};
  EXPECT_THAT(keys, testing::UnorderedElementsAreArray(expected));
  for (const std::string& key : expected) {
    const std::size_t at = text.find("\"" + key + "\"");
    ASSERT_NE(at, std::string::npos) << key;
    EXPECT_GT(at, last) << key;
    last = at;
  }
}

void expectError(const std::string& path, DetectorErrc code) {
  try {
    writeStorageConfig(path, {});
    FAIL() << "no exception";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), make_error_code(code));
    EXPECT_EQ(std::string(error.what()), "[RingTarget::saveConfig]: " + error.code().message());
  }
}

TEST(TargetConfigWriter, AnotherEndingIsNotSupported) {
  const TempFolder folder;
  for (const char* name : {"t.ini", "t.JSON", "t"}) {
    expectError(folder.file(name), DetectorErrc::kFileTypeNotSupported);
    EXPECT_FALSE(folder.has(name));
  }
}

TEST(TargetConfigWriter, AFolderThatIsNotThereIsNotAccessible) {
  const TempFolder folder;
  expectError(folder.file("none/t.json"), DetectorErrc::kFileNotAccessible);
}

}  // namespace
