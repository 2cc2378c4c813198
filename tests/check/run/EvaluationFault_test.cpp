#include "check/run/EvaluationFault.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

#include "support/CopiedSet.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

struct EvaluationFaultOf : ::testing::Test {
  CopiedSet set;  // Grey pictures of 128 x 102.
  RunInputs inputs;

  std::optional<EvaluationFault> fault() const {
    ListedPictures pictures(listedPairs(set.file("list.txt")), 0);
    pictures.take(0);
    return evaluationFault(inputs, pictures, 0);
  }
};

TEST_F(EvaluationFaultOf, NothingKnownIsNone) {
  inputs.config.triangulate_residual_switch = 1;
  inputs.config.crop = 1;
  inputs.config.cropped_cols = 128;
  inputs.config.cropped_rows = 102;
  EXPECT_FALSE(fault());
}

TEST_F(EvaluationFaultOf, ACropThatDoesNotFitIsTold) {
  inputs.config.crop = 1;
  for (const auto& [cols, rows] : {std::pair{129, 102}, {128, 103}, {0, 50}, {50, -1}}) {
    inputs.config.cropped_cols = cols;
    inputs.config.cropped_rows = rows;
    ASSERT_TRUE(fault()) << cols << " x " << rows;
    EXPECT_THAT(fault()->text, HasSubstr("pixels, and the pictures are 128 x 102"));
    EXPECT_THAT(fault()->advice, HasSubstr("set crop to 0"));
  }
  inputs.config.crop = 0;
  EXPECT_FALSE(fault());
}

TEST_F(EvaluationFaultOf, ColourIsToldWhereResidualsAreTaken) {
  cv::Mat colour;
  cv::cvtColor(set.picture("right_0.png"), colour, cv::COLOR_GRAY2BGR);
  set.write("right_0.png", colour);
  inputs.config.triangulate_residual_switch = 1;
  ASSERT_TRUE(fault());
  EXPECT_THAT(fault()->text, HasSubstr("right_0.png has 3 channels"));
  inputs.config.triangulate_residual_switch = 0;
  EXPECT_FALSE(fault());
}

}  // namespace
}  // namespace polarline
