#include "tools/accuracy/Rivals.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <opencv2/calib3d.hpp>
#include <opencv2/features2d.hpp>
#include <opencv2/imgproc.hpp>

namespace accuracy {
namespace {

constexpr int kGridColumns = 5, kGridRows = 4;

cv::Mat eightBitGrey(const Sight& sight) {
  cv::Mat grey = sight.picture;
  if (grey.channels() == 3) cv::cvtColor(grey, grey, cv::COLOR_BGR2GRAY);
  if (grey.depth() != CV_8U) grey.convertTo(grey, CV_8U, 255.0 / (std::ldexp(1.0, sight.scene.optics.bits) - 1.0));
  return grey;
}

/// The grey that at least half of the pixels on a circle have at most.
double paperAround(const cv::Mat& grey, const TrueDot& dot) {
  std::vector<double> greys;
  for (int k = 0; k < 32; ++k) {
    const double angle = k * (2.0 * CV_PI / 32.0);
    const int x = static_cast<int>(std::lround(dot.ellipse.x + 1.3 * dot.radius * std::cos(angle)));
    const int y = static_cast<int>(std::lround(dot.ellipse.y + 1.3 * dot.radius * std::sin(angle)));
    if (x >= 0 && y >= 0 && x < grey.cols && y < grey.rows) greys.push_back(grey.at<std::uint8_t>(y, x));
  }
  if (greys.empty()) return 0.0;
  std::nth_element(greys.begin(), greys.begin() + static_cast<std::ptrdiff_t>(greys.size() / 2), greys.end());
  return greys[greys.size() / 2];
}

Measured centroidOf(const cv::Mat& grey, const TrueDot& dot) {
  const double paper = paperAround(grey, dot), reach = 1.25 * dot.radius + 0.5;
  double mass = 0.0;
  cv::Point2d sum;
  for (int y = static_cast<int>(dot.ellipse.y - reach); y <= dot.ellipse.y + reach + 1; ++y) {
    for (int x = static_cast<int>(dot.ellipse.x - reach); x <= dot.ellipse.x + reach + 1; ++x) {
      if (std::hypot(x - dot.ellipse.x, y - dot.ellipse.y) > reach) continue;
      const double weight = paper - grey.at<std::uint8_t>(y, x);
      mass += weight;
      sum += weight * cv::Point2d(x, y);
    }
  }
  return {dot.id, sum / mass};
}

/// The block of plain dots nearest to the upper left corner that the picture shows in full.
std::vector<const TrueDot*> plainBlock(const Sight& sight) {
  const int columns = sight.scene.board.cols, rows = sight.scene.board.rows;
  for (int row = 0; row + kGridRows <= rows; ++row) {
    for (int column = 0; column + kGridColumns <= columns; ++column) {
      std::vector<const TrueDot*> block;
      for (int k = 0; k < kGridRows * kGridColumns; ++k) {
        const int id = (row + k / kGridColumns) * columns + column + k % kGridColumns;
        const TrueDot& dot = sight.dots.at(static_cast<std::size_t>(id));
        if (dot.measurable && !dot.marker) block.push_back(&dot);
      }
      if (block.size() == static_cast<std::size_t>(kGridRows) * kGridColumns) return block;
    }
  }
  return {};
}

cv::Ptr<cv::FeatureDetector> blobDetector(double area, bool bright) {
  cv::SimpleBlobDetector::Params params;
  params.minArea = static_cast<float>(0.4 * area);
  params.maxArea = static_cast<float>(2.0 * area);
  params.minDistBetweenBlobs = static_cast<float>(std::sqrt(area));
  params.blobColor = bright ? 255 : 0;
  return cv::SimpleBlobDetector::create(params);
}

}  // namespace

std::vector<Measured> centroids(const Sight& sight) {
  const cv::Mat grey = eightBitGrey(sight);
  std::vector<Measured> result;
  for (const TrueDot& dot : sight.dots) {
    if (dot.measurable && !dot.marker) result.push_back(centroidOf(grey, dot));
  }
  return result;
}

std::vector<Measured> circlesGrid(const Sight& sight) {
  const std::vector<const TrueDot*> block = plainBlock(sight);
  if (block.empty()) return {};
  cv::Point2d low(1e9, 1e9), high(0.0, 0.0);
  for (const TrueDot* dot : block) {
    low = {std::min(low.x, dot->centre.x), std::min(low.y, dot->centre.y)};
    high = {std::max(high.x, dot->centre.x), std::max(high.y, dot->centre.y)};
  }
  const double margin = 1.5 * block.front()->radius;
  const cv::Rect whole(0, 0, sight.picture.cols, sight.picture.rows);
  const cv::Rect part = cv::Rect(cv::Point(cv::Point2d(low.x - margin, low.y - margin)),
                                 cv::Point(cv::Point2d(high.x + margin, high.y + margin))) &
                        whole;
  std::vector<cv::Point2f> found;
  const auto detector =
      blobDetector(CV_PI * std::pow(block.front()->radius, 2), sight.scene.optics.ink > sight.scene.optics.paper);
  if (!cv::findCirclesGrid(eightBitGrey(sight)(part), {kGridColumns, kGridRows}, found, cv::CALIB_CB_SYMMETRIC_GRID,
                           detector))
    return {};
  std::vector<Measured> result;
  for (const cv::Point2f& point : found) {
    const cv::Point2d centre = cv::Point2d(point) + cv::Point2d(part.tl());
    const auto nearest = std::min_element(block.begin(), block.end(), [&](const TrueDot* a, const TrueDot* b) {
      const auto away = [&](const TrueDot* dot) {
        return std::hypot(dot->centre.x - centre.x, dot->centre.y - centre.y);
      };
      return away(a) < away(b);
    });
    result.push_back({(*nearest)->id, centre});
  }
  return result;
}

}  // namespace accuracy
