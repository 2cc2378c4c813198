#include "Tallowfen/src/zernike/SubPixelCircleDetector.h"

#include <cstddef>
#include <opencv2/imgproc.hpp>
#include <optional>
#include <utility>

#include "Tallowfen/src/zernike/CircleFit.h"
#include "Tallowfen/src/zernike/PolarityCheck.h"
#include "Tallowfen/src/zernike/ZernikeEdgeRefine.h"

namespace kestrune {

namespace {

// Pixels a side: wider than a dot, so that the mean is not the dot's own.
constexpr int kMeanBlock = 37;
// Pixels a side of the neighbourhoods that are searched for a step edge.
constexpr int kZernikeSize = 7;
// Pixels. Little enough to keep the steps of the edges.
constexpr int kSmoothing = 7;
constexpr double kSmoothingSigma = 0.65;

// In a picture of its own: the caller's pixels are not changed.
cv::Mat smoothedGrey(const cv::Mat& image) {
  cv::Mat grey = image;
  if (image.channels() > 1) cv::cvtColor(image, grey, cv::COLOR_BGR2GRAY);
  cv::Mat smoothed;
  cv::GaussianBlur(grey, smoothed, cv::Size(kSmoothing, kSmoothing), kSmoothingSigma, 0, cv::BORDER_DEFAULT);
  return smoothed;
}

void countRefused(const Contour& contour, const cv::Vec4i& relatives, morvenkit::ContourCounts& counts) {
  if (!isTopLevel(relatives)) return;
  ++(contour.size() < kFittedDots.fewest_points ? counts.too_short : counts.not_round);
}

std::vector<Contour> dotContours(const cv::Mat& grey, CircleSearch& search) {
  std::vector<Contour> contours, candidates;
  std::vector<cv::Vec4i> hierarchy;
  const cv::Mat below_mean = belowLocalMean(grey, kMeanBlock);
  findContoursByLocalMean(below_mean, Polarity::kBright, search.binary, contours, hierarchy);
  PolarityCheck(below_mean, search.binary, contours, candidates, hierarchy);
  search.contours.traced = contours.size();
  std::vector<Contour> kept;
  for (std::size_t i = 0; i < contours.size(); ++i) {
    if (canBeDot(contours[i], hierarchy[i])) {
      kept.push_back(std::move(contours[i]));
    } else {
      countRefused(contours[i], hierarchy[i], search.contours);
    }
  }
  return kept;
}

}  // namespace

bool canBeDot(const Contour& contour, const cv::Vec4i& relatives) {
  return isTopLevel(relatives) && isDot(contour, kFittedDots);
}

CircleSearch SubPixelCircleDetector(const cv::Mat& image, std::vector<Ellipse>& ellipses) {
  ellipses.clear();
  CircleSearch search;
  const cv::Mat grey = smoothedGrey(image);
  const std::vector<Contour> dots = dotContours(grey, search);
  for (const std::vector<cv::Point2d>& edge : ZernikeEdgeRefine(grey, dots, kZernikeSize)) {
    std::optional<Ellipse> ellipse = fitCircle({edge.begin(), edge.end()});
    if (ellipse) ellipses.push_back(std::move(*ellipse));
  }
  search.contours.accepted = ellipses.size();
  search.contours.not_fitted = dots.size() - ellipses.size();
  return search;
}

}  // namespace kestrune
