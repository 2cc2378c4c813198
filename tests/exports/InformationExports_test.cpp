#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <string>

#include "support/ConsoleCapture.h"

namespace {

std::string currentText() {
  std::array<char, 4096> buffer{};
  return GetPolarErrorInfo(buffer.data());
}

// Taken before any test can have failed a call.
const std::string kTextAtStart = currentText();

int callWithMissingCalibration() {
  const ConsoleCapture quiet;
  std::vector<PolarResultRecord> results;
  return CalPolarLinePrecision("x_y: 0", "board_type: 2", "missing.json", "missing.txt", &results);
}

TEST(ErrorInformation, BeforeAnyFailureIsOneBlank) { EXPECT_EQ(kTextAtStart, " "); }

TEST(ErrorInformation, FailureReplacesTheTextAndSuccessKeepsIt) {
  EXPECT_EQ(callWithMissingCalibration(), polar_status::kCalibrationUnreadable);
  EXPECT_EQ(currentText(), "Fail to read calib result file");
  std::array<char, 6> version{};
  EXPECT_TRUE(GetVersionPolarLinePrecision(version.data()));
  EXPECT_EQ(currentText(), "Fail to read calib result file");
}

TEST(ErrorInformation, SuccessfulRunAfterAFailureKeepsTheOldText) {
  callWithMissingCalibration();
  const ConsoleCapture quiet;
  const cv::Mat image(20, 20, CV_8UC1, cv::Scalar(0));
  std::vector<PolarResultRecord> results;
  EXPECT_EQ(CalPolarLinePrecisionOutMat("spaceRms_switch: 0", "", {}, {{image}, {image}}, &results, nullptr, nullptr),
            0);
  EXPECT_EQ(currentText(), "Fail to read calib result file");
}

TEST(ErrorInformation, FailureWithoutATextLeavesItEmpty) {
  callWithMissingCalibration();
  const ConsoleCapture quiet;
  std::vector<PolarResultRecord> results;
  EXPECT_EQ(CalPolarLinePrecision("TriPoint1_GT: [0,0]", "", "", "", &results), polar_status::kBadGroundTruthPoint);
  EXPECT_EQ(currentText(), "");
}

TEST(ErrorInformation, ExceptionThatPassesThroughLeavesTheText) {
  callWithMissingCalibration();
  const ConsoleCapture quiet;
  const cv::Mat image(20, 20, CV_8UC1, cv::Scalar(0));
  std::vector<PolarResultRecord> results;
  EXPECT_THROW(CalPolarLinePrecisionOutMat("crop: 1", "", {}, {{image}, {image}}, &results, nullptr, nullptr),
               cv::Exception);
  EXPECT_EQ(currentText(), "Fail to read calib result file");
}

TEST(ErrorInformation, ReturnsTheBuffersAddress) {
  std::array<char, 4096> buffer{};
  EXPECT_EQ(GetPolarErrorInfo(buffer.data()), buffer.data());
}

TEST(Version, HasSixBytesWithItsEnd) {
  std::array<char, 7> buffer{'x', 'x', 'x', 'x', 'x', 'x', 'x'};
  EXPECT_TRUE(GetVersionPolarLinePrecision(buffer.data()));
  EXPECT_EQ(std::string(buffer.data()), "1.3.3");
  EXPECT_EQ(buffer[6], 'x');
}

TEST(NullArguments, AreRefusedBeforeAnyWork) {
  std::vector<PolarResultRecord> results;
  ExportedCalibParams calib;
  EXPECT_THROW(GetPolarErrorInfo(nullptr), std::logic_error);
  EXPECT_THROW(GetVersionPolarLinePrecision(nullptr), std::logic_error);
  EXPECT_THROW(CalPolarLinePrecision("", "", "", "", nullptr), std::logic_error);
  EXPECT_THROW(CalPolarLinePrecision(nullptr, "", "", "", &results), std::logic_error);
  EXPECT_THROW(CalPolarLinePrecision("", "", "", nullptr, &results), std::logic_error);
  EXPECT_THROW(CalPolarLinePrecisionOutMat("", "", calib, {}, nullptr, nullptr, nullptr), std::logic_error);
  EXPECT_THROW(CalPolarLinePrecisionOutMat("", nullptr, calib, {}, &results, nullptr, nullptr), std::logic_error);
  EXPECT_THROW(CalRecificationPrecision("", "", {}, "", nullptr), std::logic_error);
  EXPECT_THROW(CalRecificationPrecision("", "", {}, nullptr, &results), std::logic_error);
  EXPECT_THROW(CalTempCompensateCoeff("", "", nullptr, ""), std::logic_error);
  EXPECT_THROW(ReadCalibParams("", nullptr), std::logic_error);
  EXPECT_THROW(ReadCalibImagelist("", nullptr), std::logic_error);
  EXPECT_THROW(ReadTxtPolyParams("", nullptr), std::logic_error);
  EXPECT_THROW(ReadBoardGTFromCSV("", nullptr, false), std::logic_error);
  EXPECT_THROW(ReadBoardGTFromTxt("", nullptr), std::logic_error);
}

}  // namespace
