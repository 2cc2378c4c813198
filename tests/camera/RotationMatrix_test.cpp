#include "camera/RotationMatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Near.h"

namespace {

const cv::Matx33d kAboutZ = {std::cos(0.3), -std::sin(0.3), 0, std::sin(0.3), std::cos(0.3), 0, 0, 0, 1};

TEST(RotationMatrixOf, EmptyIsTheIdentity) { EXPECT_EQ(rotationMatrixOf(cv::Mat()), cv::Matx33d::eye()); }

TEST(RotationMatrixOf, AMatrixIsTakenAsItStands) {
  const cv::Matx33d any(1, 2, 3, 4, 5, 6, 7, 8, 10);
  EXPECT_EQ(rotationMatrixOf(cv::Mat(any)), any);
  EXPECT_EQ(rotationMatrixOf(cv::Mat(cv::Matx33f(any))), any);
}

TEST(RotationMatrixOf, AVectorIsAxisTimesAngleInAnyShape) {
  for (const cv::Mat& vector :
       {cv::Mat((cv::Mat_<double>(3, 1) << 0, 0, 0.3)), cv::Mat((cv::Mat_<double>(1, 3) << 0, 0, 0.3)),
        cv::Mat(1, 1, CV_64FC3, cv::Scalar(0, 0, 0.3))}) {
    EXPECT_THAT(cv::Mat(rotationMatrixOf(vector)), MatNear(kAboutZ, 1e-15));
  }
}

TEST(RotationMatrixOf, NoRotationBelowTheEpsilonOfADouble) {
  const double epsilon = std::numeric_limits<double>::epsilon();
  EXPECT_EQ(rotationMatrixOf((cv::Mat_<double>(3, 1) << 0, 0, 0.99 * epsilon)), cv::Matx33d::eye());
  EXPECT_NE(rotationMatrixOf((cv::Mat_<double>(3, 1) << 0, 0, 1.01 * epsilon)), cv::Matx33d::eye());
}

TEST(RotationMatrixRotationVector, UndoesTheMatrix) {
  EXPECT_LE(cv::norm(rotationVectorOf(cv::Mat(kAboutZ)) - cv::Vec3d(0, 0, 0.3)), 1e-15);
  EXPECT_EQ(rotationVectorOf((cv::Mat_<float>(1, 3) << 4, 5, 6)), cv::Vec3d(4, 5, 6));
}

TEST(RotationMatrixVectorOf, AnyOtherShapeThrows) {
  EXPECT_THROW(vectorOf(cv::Mat::zeros(2, 1, CV_64F)), cv::Exception);
  EXPECT_THROW(vectorOf(cv::Mat()), cv::Exception);
  EXPECT_THROW(rotationMatrixOf(cv::Mat::eye(4, 4, CV_64F)), cv::Exception);
}

}  // namespace
