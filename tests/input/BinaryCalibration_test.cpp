#include "input/BinaryCalibration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <span>

#include "PolarLinePrecision/Status.h"
#include "input/CalibrationBytes.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

using namespace calibration_bytes;
using testing::Each;
using testing::ElementsAre;

class BinaryCalibration : public testing::Test {
 protected:
  void read(const std::string& content) { readPath(folder_.write("calib.bin", content)); }

  void readPath(const std::string& path) {
    const ConsoleCapture capture;
    readBinaryCalibration(path, *calib_);
    printed_ = capture.out();
  }

  TempFolder folder_;
  std::unique_ptr<StereoCalibParams> calib_ = std::make_unique<StereoCalibParams>();
  std::string printed_;
};

Camera second() {
  Camera camera = brown();
  camera.first_parameter = 501.0F;
  camera.first_coefficient = 7000.0F;
  camera.height = 100;
  camera.width = 200;
  return camera;
}

/// The coefficients of a table, cells row by row: 10 of each cell from `shift` on, 0 behind the last cell.
void expectTable(std::span<const float> table, float first, std::size_t shift, std::size_t cells) {
  for (std::size_t k = 0; k < table.size(); ++k) {
    const float expected = first + static_cast<float>(k / 10 * 20 + shift + k % 10);
    ASSERT_EQ(table[k], k / 10 < cells ? expected : 0.0F) << k;
  }
}

TEST_F(BinaryCalibration, TakesTheFirstTwoCameras) {
  read(mainForm({brown(), second(), kb()}));
  EXPECT_EQ(printed_, "");
  EXPECT_EQ(calib_->left.height, 1200U);
  EXPECT_EQ(calib_->left.width, 1920U);
  EXPECT_EQ(calib_->right.height, 100U);
  EXPECT_EQ(calib_->right.width, 200U);
  EXPECT_THAT(calib_->left.intrinsics, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
  EXPECT_EQ(calib_->right.intrinsics[0], 501.0);
  EXPECT_EQ(calib_->right.intrinsics[11], 512.0);
}

TEST_F(BinaryCalibration, TheExtrinsicsAreTheSecondCamerasWidened) {
  Camera first = brown();
  first.extrinsics.fill(9.0F);
  read(mainForm({first, second(), brown()}));
  EXPECT_THAT(calib_->extrinsics, ElementsAre(static_cast<double>(0.1F), static_cast<double>(0.2F),
                                              static_cast<double>(0.3F), -60.0, 0.5, 0.25));
}

TEST_F(BinaryCalibration, ModelsWithFewerParametersLeaveTheRestZero) {
  read(mainForm({kb(), ds()}));
  EXPECT_THAT(calib_->left.intrinsics, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 0, 0, 0, 0));
  EXPECT_THAT(calib_->right.intrinsics, ElementsAre(1, 2, 3, 4, 5, 6, 0, 0, 0, 0, 0, 0));
}

TEST_F(BinaryCalibration, TablesGoCellByCell) {
  read(mainForm({brown(), second()}));
  EXPECT_EQ(calib_->left.poly_nx, 6);
  EXPECT_EQ(calib_->left.poly_ny, 4);
  expectTable(calib_->left.poly_x, 1000.0F, 0, 24);
  expectTable(calib_->left.poly_y, 1000.0F, 10, 24);
  expectTable(calib_->right.poly_x, 7000.0F, 0, 24);
  expectTable(calib_->right.poly_y, 7000.0F, 10, 24);
}

TEST_F(BinaryCalibration, TheTabledFormGivesTheSameTables) {
  read(sealTabled(tabledEntries({brown(), second()})));
  EXPECT_EQ(calib_->right.poly_nx, 6);
  expectTable(calib_->left.poly_y, 1000.0F, 10, 24);
  expectTable(calib_->right.poly_x, 7000.0F, 0, 24);
}

struct GridCase {
  const char* name;
  std::uint8_t left_nx;
  std::uint8_t left_ny;
  std::uint8_t right_nx;
  std::uint8_t right_ny;
  bool left_kept;
  bool right_kept;
  std::size_t cells;
};

class BinaryCalibrationGrids : public BinaryCalibration, public testing::WithParamInterface<GridCase> {};

TEST_P(BinaryCalibrationGrids, TheLeftOneSaysHowManyCells) {
  const GridCase& grid = GetParam();
  Camera left = brown();
  Camera right = second();
  left.poly_nx = grid.left_nx;
  left.poly_ny = grid.left_ny;
  right.poly_nx = grid.right_nx;
  right.poly_ny = grid.right_ny;
  read(mainForm({left, right}));
  EXPECT_EQ(calib_->left.poly_nx, grid.left_kept ? grid.left_nx : 0);
  EXPECT_EQ(calib_->left.poly_ny, grid.left_kept ? grid.left_ny : 0);
  EXPECT_EQ(calib_->right.poly_nx, grid.right_kept ? grid.right_nx : 0);
  EXPECT_EQ(calib_->right.poly_ny, grid.right_kept ? grid.right_ny : 0);
  expectTable(calib_->left.poly_x, 1000.0F, 0, grid.cells);
  expectTable(calib_->right.poly_y, 7000.0F, 10, grid.cells);
}

INSTANTIATE_TEST_SUITE_P(Sizes, BinaryCalibrationGrids,
                         testing::Values(GridCase{"AllTheBlockHolds", 5, 5, 25, 1, true, true, 25},
                                         GridCase{"OneCellTooMany", 13, 2, 6, 4, false, true, 0},
                                         GridCase{"Huge", 255, 255, 255, 255, false, false, 0},
                                         GridCase{"ZeroAcross", 0, 4, 6, 4, false, true, 0},
                                         GridCase{"ZeroDown", 6, 0, 6, 4, false, true, 0},
                                         GridCase{"RightLarger", 2, 1, 6, 4, true, true, 2},
                                         GridCase{"RightSmaller", 6, 4, 1, 1, true, true, 24},
                                         GridCase{"RightTooLarge", 6, 4, 26, 1, true, false, 24},
                                         GridCase{"NoTables", 0, 0, 0, 0, false, false, 0}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(BinaryCalibration, WritesTheFourTablesBesideTheFile) {
  read(mainForm({brown(), second()}));
  const auto first_lines = [&](const char* name) { return folder_.read(name).substr(0, 10); };
  EXPECT_EQ(first_lines("polyparamirl_x.txt"), "1000\n1001\n");
  EXPECT_EQ(first_lines("polyparamirl_y.txt"), "1010\n1011\n");
  EXPECT_EQ(first_lines("polyparamirr_x.txt"), "7000\n7001\n");
  EXPECT_EQ(first_lines("polyparamirr_y.txt"), "7010\n7011\n");
  const std::string table = folder_.read("polyparamirr_y.txt");
  EXPECT_EQ(std::count(table.begin(), table.end(), '\n'), 500);
}

TEST_F(BinaryCalibration, ABareFileNameWritesNothing) {
  folder_.write("calib.bin", mainForm({brown(), second()}));
  const std::filesystem::path kept = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  readPath("calib.bin");
  std::filesystem::current_path(kept);
  EXPECT_EQ(calib_->left.height, 1200U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 1);
}

TEST_F(BinaryCalibration, AFailedLoadIsReportedAndLeavesBothCamerasAtZero) {
  calib_->left.height = 7;
  calib_->right.intrinsics.fill(7.0);
  calib_->extrinsics.fill(7.0);
  std::string content = mainForm({brown(), second()});
  content[50 + 135 + 100] ^= 1;
  read(content);
  EXPECT_EQ(printed_, "Read Poly Fail!\n");
  EXPECT_EQ(calib_->left.height, 0U);
  EXPECT_THAT(calib_->right.intrinsics, Each(0.0));
  EXPECT_THAT(calib_->extrinsics, Each(0.0));
  EXPECT_EQ(calib_->left.poly_nx, 0);
}

TEST_F(BinaryCalibration, AFailedLoadWritesItsTablesAllTheSame) {
  read("nothing");
  EXPECT_TRUE(folder_.has("polyparamirl_x.txt"));
  EXPECT_EQ(folder_.read("polyparamirr_y.txt").substr(0, 4), "0\n0\n");
}

TEST_F(BinaryCalibration, AMissingFileIsAFailedLoad) {
  readPath(folder_.path().string() + "\\gone.bin");
  EXPECT_EQ(printed_, "Read Poly Fail!\n");
  EXPECT_TRUE(folder_.has("polyparamirl_x.txt"));
}

TEST_F(BinaryCalibration, AnEntryThatIsNotThereLeavesItsCameraAtZero) {
  read(mainForm({brown()}));
  EXPECT_EQ(printed_, "");
  EXPECT_EQ(calib_->left.intrinsics[11], 12.0);
  EXPECT_EQ(calib_->left.poly_nx, 6);
  EXPECT_EQ(calib_->right.height, 0U);
  EXPECT_EQ(calib_->right.poly_nx, 0);
  EXPECT_THAT(calib_->right.intrinsics, Each(0.0));
  EXPECT_THAT(calib_->right.poly_x, Each(0.0F));
}

TEST_F(BinaryCalibration, LoadedForARunItIsTheSameAndWritesNothing) {
  const std::string content = mainForm({brown(), second(), kb()});
  const auto loaded = std::make_unique<StereoCalibParams>();
  const std::string path = folder_.write("calib.bin", content);
  const ConsoleCapture capture;
  EXPECT_EQ(loadStereoCalibration(path, *loaded), 0);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 1);
  read(content);
  EXPECT_EQ(loaded->left.intrinsics, calib_->left.intrinsics);
  EXPECT_EQ(loaded->right.width, 200U);
  EXPECT_EQ(loaded->extrinsics, calib_->extrinsics);
  EXPECT_EQ(loaded->left.poly_x, calib_->left.poly_x);
  EXPECT_EQ(loaded->right.poly_y, calib_->right.poly_y);
}

TEST_F(BinaryCalibration, LoadedForARunItTellsItsStatus) {
  const ConsoleCapture capture;
  std::string content = mainForm({brown(), second()});
  content[50 + 135 + 100] ^= 1;
  EXPECT_EQ(loadStereoCalibration(folder_.write("calib.bin", content), *calib_), polar_status::kCrcMismatch);
  EXPECT_EQ(loadStereoCalibration(folder_.write("calib.bin", "nothing"), *calib_), polar_status::kNotSupported);
  EXPECT_EQ(loadStereoCalibration(folder_.file("gone.bin"), *calib_), ENOENT);
  EXPECT_FALSE(folder_.has("polyparamirl_x.txt"));
  EXPECT_EQ(loadStereoCalibration(folder_.write("calib.bin", mainForm({brown()})), *calib_), 0);
  EXPECT_EQ(calib_->right.width, 0U);
}

}  // namespace
