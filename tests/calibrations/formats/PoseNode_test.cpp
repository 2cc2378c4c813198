#include "calibrations/formats/PoseNode.h"

#include <gtest/gtest.h>

#include "calibrations/document/YamlText.h"
#include "polarline/errors.h"

namespace {

using calibrations::Document;
using calibrations::Node;

Document documentOf(const std::string& text) {
  return {"file", calibrations::Syntax::kYaml, calibrations::valuesOfYaml("a: " + text, "file").front()};
}

TEST(PoseNode, HoldsRotationAndTranslation) {
  const Document document = documentOf("[0, -1, 0, 5, 1, 0, 0, 6, 0, 0, 1, 7, 0, 0, 0, 1]");
  double deviation = 0.0;
  const calibrations::Pose pose = calibrations::poseOf(Node(document).at("a"), deviation);
  EXPECT_LT(cv::norm(pose.R - cv::Matx33d(0, -1, 0, 1, 0, 0, 0, 0, 1)), 1e-15);
  EXPECT_EQ(pose.T, cv::Vec3d(5, 6, 7));
  EXPECT_EQ(deviation, 0.0);
}

TEST(PoseNode, KeepsTheLargestDeviation) {
  double deviation = 1e-5;
  const Document sound = documentOf("[1, 0, 0, 0, 1, 0, 0, 0, 1]");
  calibrations::rotationOf(Node(sound).at("a"), deviation);
  EXPECT_EQ(deviation, 1e-5);
  const Document rounded = documentOf("[1, 0, 0, 0, 1, 0, 0, 0, 1.0001]");  // 1.0001^2 - 1
  calibrations::rotationOf(Node(rounded).at("a"), deviation);
  EXPECT_NEAR(deviation, 2.0001e-4, 1e-12);
}

TEST(PoseNode, RefusesWhatIsNoMotion) {
  double deviation = 0.0;
  for (const char* text :
       {"[1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1]", "[1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 2]",
        "[1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1]", "[2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1]"}) {
    const Document document = documentOf(text);
    EXPECT_THROW(calibrations::poseOf(Node(document).at("a"), deviation), polarline::InputError) << text;
  }
}

}  // namespace
