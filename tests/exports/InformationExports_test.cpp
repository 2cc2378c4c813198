#include <PolarLinePrecision.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

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

TEST(InformationExportsError, BeforeAnyFailureIsOneBlank) { EXPECT_EQ(kTextAtStart, " "); }

TEST(InformationExportsError, FailureReplacesTheTextAndSuccessKeepsIt) {
  EXPECT_EQ(callWithMissingCalibration(), polar_status::kCalibrationUnreadable);
  EXPECT_EQ(currentText(), "Fail to read calib result file");
  std::array<char, 6> version{};
  EXPECT_TRUE(GetVersionPolarLinePrecision(version.data()));
  EXPECT_EQ(currentText(), "Fail to read calib result file");
}

TEST(InformationExportsError, SuccessfulRunAfterAFailureKeepsTheOldText) {
  callWithMissingCalibration();
  const ConsoleCapture quiet;
  const cv::Mat image(20, 20, CV_8UC1, cv::Scalar(0));
  std::vector<PolarResultRecord> results;
  EXPECT_EQ(CalPolarLinePrecisionOutMat("spaceRms_switch: 0", "", {}, {{image}, {image}}, &results, nullptr, nullptr),
            0);
  EXPECT_EQ(currentText(), "Fail to read calib result file");
}

TEST(InformationExportsError, FailureWithoutATextLeavesItEmpty) {
  callWithMissingCalibration();
  const ConsoleCapture quiet;
  std::vector<PolarResultRecord> results;
  EXPECT_EQ(CalPolarLinePrecision("TriPoint1_GT: [0,0]", "", "", "", &results), polar_status::kBadGroundTruthPoint);
  EXPECT_EQ(currentText(), "");
}

TEST(InformationExportsError, ExceptionThatPassesThroughLeavesTheText) {
  callWithMissingCalibration();
  const ConsoleCapture quiet;
  const cv::Mat image(20, 20, CV_8UC1, cv::Scalar(0));
  std::vector<PolarResultRecord> results;
  EXPECT_THROW(CalPolarLinePrecisionOutMat("crop: 1", "", {}, {{image}, {image}}, &results, nullptr, nullptr),
               cv::Exception);
  EXPECT_EQ(currentText(), "Fail to read calib result file");
}

TEST(InformationExportsError, ReturnsTheBuffersAddress) {
  std::array<char, 4096> buffer{};
  EXPECT_EQ(GetPolarErrorInfo(buffer.data()), buffer.data());
}

// The caller's buffer may end there.
TEST(InformationExportsError, WritesNothingBehindTheEndOfTheText) {
  callWithMissingCalibration();
  const std::string text = "Fail to read calib result file";
  std::array<char, 40> buffer{};
  buffer.fill('x');
  EXPECT_EQ(GetPolarErrorInfo(buffer.data()), text);
  EXPECT_EQ(std::string(buffer.begin() + static_cast<std::ptrdiff_t>(text.size()) + 1, buffer.end()),
            std::string(buffer.size() - text.size() - 1, 'x'));
}

TEST(InformationExportsVersion, HasSixBytesWithItsEnd) {
  std::array<char, 7> buffer{'x', 'x', 'x', 'x', 'x', 'x', 'x'};
  EXPECT_TRUE(GetVersionPolarLinePrecision(buffer.data()));
  EXPECT_EQ(std::string(buffer.data()), "1.3.3");
  EXPECT_EQ(buffer[6], 'x');
}

struct NullCase {
  const char* name;
  const char* argument;
  std::function<void()> call;
};

void PrintTo(const NullCase& tested, std::ostream* stream) { *stream << tested.name; }

class InformationExportsNullArgument : public testing::TestWithParam<NullCase> {};

TEST_P(InformationExportsNullArgument, IsRefusedByItsNameBeforeAnyWork) {
  callWithMissingCalibration();
  const ConsoleCapture console;
  EXPECT_THAT(GetParam().call,
              testing::ThrowsMessage<std::logic_error>(GetParam().argument + std::string(" must not be null")));
  EXPECT_EQ(console.out() + console.err(), "");
  EXPECT_EQ(currentText(), "Fail to read calib result file");
}

std::vector<PolarResultRecord> unused;

INSTANTIATE_TEST_SUITE_P(
    Exports, InformationExportsNullArgument,
    testing::Values(
        NullCase{"RunPolarConfig", "polarConfigPath", [] { CalPolarLinePrecision(nullptr, "", "", "", &unused); }},
        NullCase{"RunTargetConfig", "targetConfigPath", [] { CalPolarLinePrecision("", nullptr, "", "", &unused); }},
        NullCase{"RunCalibration", "calibrationPath", [] { CalPolarLinePrecision("", "", nullptr, "", &unused); }},
        NullCase{"RunImageList", "imageListPath", [] { CalPolarLinePrecision("", "", "", nullptr, &unused); }},
        NullCase{"RunResults", "results", [] { CalPolarLinePrecision("", "", "", "", nullptr); }},
        NullCase{"MemoryPolarConfig", "polarConfigPath",
                 [] { CalPolarLinePrecisionOutMat(nullptr, "", {}, {}, &unused, nullptr, ""); }},
        NullCase{"MemoryTargetConfig", "targetConfigPath",
                 [] { CalPolarLinePrecisionOutMat("", nullptr, {}, {}, &unused, nullptr, ""); }},
        NullCase{"MemoryResults", "results", [] { CalPolarLinePrecisionOutMat("", "", {}, {}, nullptr, nullptr, ""); }},
        NullCase{"RectifiedPolarConfig", "polarConfigPath",
                 [] { CalRecificationPrecision(nullptr, "", {}, "", &unused); }},
        NullCase{"RectifiedTargetConfig", "targetConfigPath",
                 [] { CalRecificationPrecision("", nullptr, {}, "", &unused); }},
        NullCase{"RectifiedImageList", "imageListPath", [] { CalRecificationPrecision("", "", {}, nullptr, &unused); }},
        NullCase{"RectifiedResults", "results", [] { CalRecificationPrecision("", "", {}, "", nullptr); }},
        NullCase{"TemperaturePolarConfig", "polarConfigPath", [] { CalTempCompensateCoeff(nullptr, "", "", ""); }},
        NullCase{"TemperatureTargetConfig", "targetConfigPath", [] { CalTempCompensateCoeff("", nullptr, "", ""); }},
        NullCase{"TemperatureCalibration", "calibrationPath", [] { CalTempCompensateCoeff("", "", nullptr, ""); }},
        NullCase{"TemperatureImageList", "imageListPath", [] { CalTempCompensateCoeff("", "", "", nullptr); }},
        NullCase{"CalibrationRecord", "calibration", [] { ReadCalibParams("", nullptr); }},
        NullCase{"ImageListImages", "images", [] { ReadCalibImagelist("", nullptr); }},
        NullCase{"TextTablesRecord", "calibration", [] { ReadTxtPolyParams("", nullptr); }},
        NullCase{"CsvBoard", "board_points", [] { ReadBoardGTFromCSV("", nullptr, false); }},
        NullCase{"TextBoard", "board_points", [] { ReadBoardGTFromTxt("", nullptr); }},
        NullCase{"ErrorBuffer", "buffer", [] { GetPolarErrorInfo(nullptr); }},
        NullCase{"VersionBuffer", "buffer", [] { GetVersionPolarLinePrecision(nullptr); }}),
    [](const auto& tested) { return std::string(tested.param.name); });

}  // namespace
