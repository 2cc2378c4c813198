#include "input/PolyTableFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "platform/BoundedInput.h"
#include "support/CommaLocale.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

const std::string kMissing = "path/polyparamirl_x.txt is not exists!\n";
constexpr std::array<const char*, 4> kNames = {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt",
                                               "polyparamirr_y.txt"};

class PolyTableFiles : public testing::Test {
 protected:
  void writeEach(const std::string& content) {
    for (const char* name : kNames) folder_.write(name, content);
  }

  std::int32_t read(const std::string& folder) {
    const ConsoleCapture capture;
    const std::int32_t status = readPolyTableFiles(folder, calibration_.get());
    printed_ = capture.out();
    return status;
  }
  std::int32_t read() { return read(folder_.path().string()); }

  TempFolder folder_;
  std::unique_ptr<ExportedCalibParams> calibration_ = std::make_unique<ExportedCalibParams>();
  std::string printed_;
};

TEST_F(PolyTableFiles, WritesAll500ValuesALineEachWithSixDigits) {
  const auto calib = std::make_unique<StereoCalibParams>();
  calib->left.poly_nx = 1;
  calib->left.poly_ny = 1;
  calib->left.poly_x[0] = 1.0F / 3.0F;
  calib->left.poly_x[499] = -1.5F;
  calib->left.poly_y[0] = 1.25e-7F;
  calib->right.poly_x[0] = 1234567.0F;
  calib->right.poly_y[0] = 4.0F;
  writePolyTableFiles(folder_.path().string(), *calib);
  std::string zeros;
  for (int k = 0; k < 498; ++k) zeros += "0\n";
  EXPECT_EQ(folder_.read(kNames[0]), "0.333333\n" + zeros + "-1.5\n");
  EXPECT_EQ(folder_.read(kNames[1]), "1.25e-07\n" + zeros + "0\n");
  EXPECT_EQ(folder_.read(kNames[2]), "1.23457e+06\n" + zeros + "0\n");
  EXPECT_EQ(folder_.read(kNames[3]), "4\n" + zeros + "0\n");
}

TEST_F(PolyTableFiles, FilesThatDoNotOpenAreLeftOutSilently) {
  const ConsoleCapture capture;
  writePolyTableFiles(folder_.file("none"), StereoCalibParams());
  EXPECT_FALSE(folder_.has("none"));
  EXPECT_EQ(capture.out() + capture.err(), "");
}

TEST_F(PolyTableFiles, ReadsEachFileIntoItsTable) {
  for (std::size_t k = 0; k < kNames.size(); ++k) {
    std::string text;
    for (int line = 0; line < 500; ++line)
      text += std::to_string(1000 * (k + 1) + static_cast<std::size_t>(line)) + ".5\n";
    folder_.write(kNames.at(k), text);
  }
  ASSERT_EQ(read(), 0);
  const std::array<const std::array<float, 500>*, 4> tables = {
      &calibration_->left.poly_x, &calibration_->left.poly_y, &calibration_->right.poly_x, &calibration_->right.poly_y};
  for (std::size_t k = 0; k < tables.size(); ++k) {
    EXPECT_EQ(tables.at(k)->front(), static_cast<float>(1000 * (k + 1)) + 0.5F);
    EXPECT_EQ(tables.at(k)->back(), static_cast<float>(1000 * (k + 1)) + 499.5F);
  }
}

TEST_F(PolyTableFiles, PrintsEachPathInOrder) {
  writeEach("1\n");
  ASSERT_EQ(read(), 0);
  const std::string folder = folder_.path().string();
  EXPECT_EQ(printed_, folder + "/polyparamirl_x.txt\n" + folder + "/polyparamirl_y.txt\n" + folder +
                          "/polyparamirr_x.txt\n" + folder + "/polyparamirr_y.txt\n");
}

TEST_F(PolyTableFiles, GridAndSizeAreThoseOfTheTextForm) {
  writeEach("1\n");
  calibration_->left.height = 7.0;
  calibration_->boardPoints = {{1, 2, 3}};
  calibration_->extrinsics[0] = 5.0;
  ASSERT_EQ(read(), 0);
  for (const ExportedCameraCalib* camera : {&calibration_->left, &calibration_->right}) {
    EXPECT_EQ(camera->poly_nx, 6);
    EXPECT_EQ(camera->poly_ny, 4);
    EXPECT_EQ(camera->height, 1200.0);
    EXPECT_EQ(camera->width, 1920.0);
  }
  EXPECT_EQ(calibration_->boardPoints.size(), 1U);
  EXPECT_EQ(calibration_->extrinsics[0], 5.0);
}

TEST_F(PolyTableFiles, ShortFilesArePaddedWithZeros) {
  writeEach("1.5\n2.5");
  calibration_->left.poly_x.fill(9.0F);
  ASSERT_EQ(read(), 0);
  EXPECT_EQ(calibration_->left.poly_x[1], 2.5F);
  EXPECT_TRUE(std::all_of(calibration_->left.poly_x.begin() + 2, calibration_->left.poly_x.end(),
                          [](float value) { return value == 0.0F; }));
}

TEST_F(PolyTableFiles, EmptyFilesGiveZeros) {
  writeEach("");
  calibration_->right.poly_y.fill(9.0F);
  ASSERT_EQ(read(), 0);
  EXPECT_EQ(calibration_->right.poly_y[0], 0.0F);
}

TEST_F(PolyTableFiles, LinesThatAreNoNumberGiveZeroAndKeepTheirPlace) {
  writeEach("1\r\n\r\nabc\r\n4 trailing\r\n,5\n6,7\n");
  ASSERT_EQ(read(), 0);
  const std::array<float, 6> expected = {1.0F, 0.0F, 0.0F, 4.0F, 0.0F, 6.0F};
  EXPECT_TRUE(std::equal(expected.begin(), expected.end(), calibration_->left.poly_x.begin()));
}

TEST_F(PolyTableFiles, ValuesBehindThe500thAreDropped) {
  std::string text;
  for (int k = 0; k < 700; ++k) text += std::to_string(k) + "\n";
  writeEach(text);
  ASSERT_EQ(read(), 0);
  EXPECT_EQ(calibration_->right.poly_x[499], 499.0F);
}

TEST_F(PolyTableFiles, LinesBehindThe500thAreNotRead) {
  std::string text;
  for (int k = 0; k < 500; ++k) text += std::to_string(k) + "\n";
  writeEach(text);
  folder_.write(kNames[0], text + std::string(bounded::kLongestText + 1, 'x'));
  EXPECT_EQ(read(), 0);
  EXPECT_EQ(calibration_->left.poly_x[499], 499.0F);
}

TEST_F(PolyTableFiles, WhicheverIsMissingTheTextNamesTheFirst) {
  for (const char* name : kNames) {
    writeEach("1\n");
    std::filesystem::remove(folder_.path() / name);
    EXPECT_EQ(read(), 1);
    EXPECT_EQ(printed_, kMissing);
    EXPECT_EQ(calibration_->left.poly_nx, 0);
  }
}

TEST_F(PolyTableFiles, AMissingFolderIsAMissingFile) {
  EXPECT_EQ(read(folder_.file("none")), 1);
  EXPECT_EQ(printed_, kMissing);
}

TEST_F(PolyTableFiles, ATrailingSeparatorIsAccepted) {
  writeEach("3\n");
  EXPECT_EQ(read(folder_.path().string() + "\\"), 0);
  EXPECT_EQ(printed_.substr(0, printed_.find('\n')), folder_.path().string() + "\\/polyparamirl_x.txt");
  EXPECT_EQ(calibration_->left.poly_x[0], 3.0F);
}

TEST_F(PolyTableFiles, ARoundTripKeepsSixDigits) {
  const auto calib = std::make_unique<StereoCalibParams>();
  calib->left.poly_x[0] = 0.12345678F;
  writePolyTableFiles(folder_.path().string(), *calib);
  ASSERT_EQ(read(), 0);
  EXPECT_EQ(calibration_->left.poly_x[0], 0.123457F);
}

TEST_F(PolyTableFiles, NumbersDoNotFollowTheProcessLocale) {
  const CommaLocale comma;
  const auto calib = std::make_unique<StereoCalibParams>();
  calib->left.poly_x[0] = 12345.5F;
  writePolyTableFiles(folder_.path().string(), *calib);
  EXPECT_EQ(folder_.read(kNames[0]).substr(0, 8), "12345.5\n");
  ASSERT_EQ(read(), 0);
  EXPECT_EQ(calibration_->left.poly_x[0], 12345.5F);
}

}  // namespace
