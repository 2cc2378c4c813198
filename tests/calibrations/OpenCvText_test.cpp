#include <gtest/gtest.h>

#include <opencv2/core/persistence.hpp>

#include "Imported.h"
#include "Layouts.h"

namespace {

using polarline::Calibration;

Calibration of(const Rig& rig) { return imported(layouts::kalibrChain(rig)).calibration; }

TEST(OpenCvText, IsReadByOpenCv) {
  const cv::FileStorage storage(polarline::openCvText(of(Rig())), cv::FileStorage::READ | cv::FileStorage::MEMORY);
  EXPECT_EQ(cv::norm(storage["M1"].mat(), cv::Mat(Rig().K_left)), 0.0);
  EXPECT_EQ(cv::norm(storage["M2"].mat(), cv::Mat(Rig().K_right)), 0.0);
  EXPECT_EQ(cv::norm(storage["D1"].mat(), cv::Mat(cv::Matx<double, 1, 5>(-0.28, 0.07, 0.0011, -0.0007, 0))), 0.0);
  EXPECT_EQ(cv::norm(storage["T"].mat(), cv::Mat(Rig().T)), 0.0);
  EXPECT_LT(cv::norm(storage["R"].mat(), cv::Mat(Rig().R())), 1e-15);
  EXPECT_EQ(static_cast<int>(storage["image_width"]), 640);
  EXPECT_EQ(static_cast<int>(storage["image_height"]), 480);
}

TEST(OpenCvText, HasAsManyCoefficientsAsTheTypeWants) {
  const auto count = [](const Calibration& calibration) {
    const cv::FileStorage storage(polarline::openCvText(calibration), cv::FileStorage::READ | cv::FileStorage::MEMORY);
    return storage["D2"].mat().total();
  };
  Calibration calibration = of(Rig());
  EXPECT_EQ(count(calibration), 5U);
  calibration.type = 1;
  EXPECT_EQ(count(calibration), 8U);
  EXPECT_EQ(count(of(fisheyeRig())), 4U);
}

TEST(OpenCvText, HasNoSizeWhereNoneIsKnown) {
  Calibration calibration = of(Rig());
  calibration.left.size = {};
  EXPECT_EQ(polarline::openCvText(calibration).find("image_"), std::string::npos);
}

}  // namespace
