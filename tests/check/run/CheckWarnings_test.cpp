#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

#include "CheckedSet.h"
#include "ExportRun.h"

namespace polarline {
namespace {

TEST(CheckWarnings, NameThePicturesOfAnotherSizeThanABinaryCalibration) {
  const CopiedSet set;
  std::filesystem::remove(set.file("calib.json"));
  EXPECT_TRUE(set.check().warnings.empty());
  for (const char* name : {"left_0.png", "right_0.png"}) {
    cv::Mat padded;
    cv::copyMakeBorder(set.picture(name), padded, 0, 2, 0, 0, cv::BORDER_REPLICATE);
    set.write(name, padded);
  }
  const Check check = set.check();
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].text, "left_0.png is 128 x 104 pixels; the calibration is for 128 x 102");
}

TEST(CheckWarnings, NameAPictureThatIsCutOffAndYetDecodes) {
  const CopiedSet set;
  cv::imwrite(set.file("right_1.jpg"), set.picture("right_1.png"));
  set.write("list.txt", std::string("#L R\nleft_0.png right_0.png\nleft_1.png right_1.jpg\n"));
  EXPECT_TRUE(set.check().warnings.empty());
  const std::string whole = set.read("right_1.jpg");
  set.write("right_1.jpg", whole.substr(0, whole.size() - 40));
  const Check check = set.check();
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].code, "picture_cut_off");
  EXPECT_EQ(check.warnings[0].text, "right_1.jpg is cut off: grey stands for the rest");
  EXPECT_EQ(check.warnings[0].pair, 1);
  documentIsValid(check);
}

TEST(CheckWarnings, TellWhatTheCalibrationLacksAndGoOn) {
  const CopiedSet set;
  auto calibration = nlohmann::json::parse(set.read("calib.json"));
  calibration["IR_L"].erase("K6");
  set.write("calib.json", calibration.dump());
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 0);
  EXPECT_EQ(check.finished(), 2U);
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].code, "calibration_member");
  EXPECT_EQ(export_run::difference(check, export_run::of(set).records), "");
}

}  // namespace
}  // namespace polarline
