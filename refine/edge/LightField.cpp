#include "refine/edge/LightField.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/Median.h"

namespace refine {
namespace {

constexpr double kFarOff = 3.0;

using Terms = cv::Vec<double, 6>;

Terms termsAt(const cv::Point2d& p) { return {1.0, p.x, p.y, p.x * p.x, p.x * p.y, p.y * p.y}; }

}  // namespace

LightField::LightField(const std::vector<PaperGrey>& places) {
  if (places.empty()) return;
  double sum = 0.0;
  for (const PaperGrey& place : places) sum += place.grey;
  if (sum > 0.0) terms_[0] = std::log(sum / static_cast<double>(places.size()));
  if (places.size() < kFewest) return;
  cv::Point2d low = places.front().pixel, high = low;
  for (const PaperGrey& place : places) {
    low = {std::min(low.x, place.pixel.x), std::min(low.y, place.pixel.y)};
    high = {std::max(high.x, place.pixel.x), std::max(high.y, place.pixel.y)};
  }
  middle_ = 0.5 * (low + high);
  unit_ = std::max({1.0, 0.5 * (high.x - low.x), 0.5 * (high.y - low.y)});
  if (!fit(places, std::numeric_limits<double>::infinity())) return;
  std::vector<double> errors;
  errors.reserve(places.size());
  for (const PaperGrey& place : places) {
    if (place.grey > 0.0)
      errors.push_back(std::abs(std::log(place.grey) - terms_.dot(termsAt((place.pixel - middle_) / unit_))));
  }
  fit(places, kFarOff * rank::upperMedian(errors) + 1e-9);
}

bool LightField::fit(const std::vector<PaperGrey>& places, double limit) {
  cv::Matx66d normal = cv::Matx66d::zeros();
  Terms right = Terms::all(0.0);
  for (const PaperGrey& place : places) {
    if (!(place.grey > 0.0)) continue;
    const Terms terms = termsAt((place.pixel - middle_) / unit_);
    const double level = std::log(place.grey);
    if (std::abs(level - terms_.dot(terms)) > limit) continue;
    normal += terms * terms.t();
    right += level * terms;
  }
  bool solved = false;
  const cv::Matx66d inverse = normal.inv(cv::DECOMP_CHOLESKY, &solved);
  if (solved) terms_ = inverse * right;
  return solved;
}

double LightField::greyAt(const cv::Point2d& pixel) const {
  return std::exp(terms_.dot(termsAt((pixel - middle_) / unit_)));
}

cv::Point2d LightField::slopeAt(const cv::Point2d& pixel) const {
  const cv::Point2d p = (pixel - middle_) / unit_;
  return {(terms_[1] + 2.0 * terms_[3] * p.x + terms_[4] * p.y) / unit_,
          (terms_[2] + terms_[4] * p.x + 2.0 * terms_[5] * p.y) / unit_};
}

}  // namespace refine
