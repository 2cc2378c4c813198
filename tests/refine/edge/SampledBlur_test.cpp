#include "refine/edge/SampledBlur.h"

#include <gtest/gtest.h>

#include "refine/EllipsePicture.h"

namespace {

/// Share of each pixel that a circle covers, by brute force, then a sampled Gaussian filter.
cv::Mat sampledThenBlurred(const cv::Point2d& centre, double radius, double sigma, const cv::Size& size) {
  constexpr int kFine = 20;
  cv::Mat covered(size, CV_32F, cv::Scalar(0.0));
  for (int row = 0; row < size.height * kFine; ++row) {
    for (int column = 0; column < size.width * kFine; ++column) {
      const double x = (column + 0.5) / kFine - 0.5 - centre.x, y = (row + 0.5) / kFine - 0.5 - centre.y;
      if (x * x + y * y < radius * radius) covered.at<float>(row / kFine, column / kFine) += 1.0F / (kFine * kFine);
    }
  }
  cv::GaussianBlur(covered, covered, cv::Size(9, 9), sigma, sigma);
  return covered;
}

TEST(SampledBlurDeparture, IsThatOfAFilterBehindThePixels) {
  const cv::Point2d centre(15.3, 14.8);
  const double radius = 6.0, sigma = 0.7, paper = 200.0, ink = 20.0;
  const cv::Mat covered = sampledThenBlurred(centre, radius, sigma, {30, 30});
  refine::EdgeModel model;
  // What curvature takes off the radius of a blurred circle is a part of the model's radius.
  model.outline = {centre, radius * radius, 0.0, radius * radius};
  model.paper = paper;
  model.ink = ink;
  model.blur = std::sqrt(sigma * sigma + 1.0 / 12.0);
  refine::EdgeTable table;
  table.clear({15, 15});
  for (int row = 5; row < 25; ++row) {
    for (int column = 5; column < 25; ++column)
      table.add(column, row, static_cast<float>(paper + (ink - paper) * covered.at<float>(row, column)));
  }
  table.evaluate(model);
  const auto rms = [&] { return std::sqrt((table.grey() - table.modelGrey()).square().mean()); };
  const auto moment = [&] {  // of the residuals along x: what would move the centre
    return std::abs((table.slopes(1).col(0).array() * (table.grey() - table.modelGrey())).sum());
  };
  const float before = rms(), moment_before = moment();
  refine::SampledBlurMemory memory;
  refine::takeOffSampling(model, table, memory);
  EXPECT_LT(rms(), 0.6F * before);
  EXPECT_LT(moment(), 0.25F * moment_before);
}

TEST(SampledBlurDeparture, OfNoPixelsIsNothing) {
  refine::EdgeTable table;
  table.clear({0, 0});
  refine::SampledBlurMemory memory;
  refine::takeOffSampling({}, table, memory);
  EXPECT_EQ(table.size(), 0);
}

}  // namespace
