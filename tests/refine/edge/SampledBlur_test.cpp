#include "refine/edge/SampledBlur.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "refine/EllipsePicture.h"
#include "refine/edge/DepartureAt.h"
#include "refine/edge/EdgeTable.h"

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

TEST(SampledBlur, IsThatOfAFilterBehindThePixels) {
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
  const auto rms = [&] { return std::sqrt((table.grey() - table.modelGrey()).square().mean()); };
  const auto moment = [&] {  // of the residuals along x: what would move the centre
    return std::abs((table.slopes(1).col(0).array() * (table.grey() - table.modelGrey())).sum());
  };
  table.evaluate(model);
  const float before = rms(), moment_before = moment();
  const refine::EdgeDeparture sampled = refine::sampledBlur(model.blur, radius);
  table.evaluate(model, &sampled);
  EXPECT_LT(rms(), 0.6F * before);
  EXPECT_LT(moment(), 0.25F * moment_before);
}

/// Along a column of pixels a straight edge of the normal (1, 0) covers the same share of each: the filter down the
/// column changes nothing, and across it adds up shares of whole pixels.
TEST(SampledBlur, OfAStraightEdgeAlongTheColumnsIsThatOfTheAddedShares) {
  const double sigma = 0.7, blur = std::sqrt(sigma * sigma + 1.0 / 12.0);
  const refine::EdgeDeparture sampled = refine::sampledBlur(blur, 1e5);
  double sum = 0.0;
  for (int k = -6; k <= 6; ++k) sum += std::exp(-0.5 * k * k / (sigma * sigma));
  for (const double t : {-1.3, -0.4, 0.0, 0.2, 0.9, 1.7}) {
    double share = 0.0;
    for (int k = -6; k <= 6; ++k) {
      const double covered = std::clamp(0.5 - (t + k), 0.0, 1.0);
      share += std::exp(-0.5 * k * k / (sigma * sigma)) / sum * covered;
    }
    const double smooth = 0.5 * std::erfc(t / blur / std::sqrt(2.0));
    EXPECT_NEAR(departureAt(sampled, static_cast<float>(t), 1.0F, 0.0F), share - smooth, 2e-3) << t;
    EXPECT_NEAR(departureAt(sampled, static_cast<float>(t), 0.0F, -1.0F), share - smooth, 2e-3) << t;
  }
}

}  // namespace
