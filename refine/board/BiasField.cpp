#include "refine/board/BiasField.h"

#include <algorithm>

#include "refine/board/ContourCentre.h"
#include "refine/board/SpreadChoice.h"

namespace refine {
namespace {

constexpr std::size_t kTraced = 100;
constexpr int kOrder = 5;
constexpr int kTerms = 21;

}  // namespace

BiasField::BiasField(const CalibratedCamera& camera, const CameraPose& pose, const std::vector<cv::Point3d>& places,
                     double radius) {
  if (places.size() < kFewest) return;
  spanOver(places);
  cv::Matx<double, kTerms, kTerms> normal = cv::Matx<double, kTerms, kTerms>::zeros();
  Terms right_x = Terms::all(0.0), right_y = Terms::all(0.0);
  std::size_t traced = 0;
  for (const std::size_t k : spreadChoice(places.size(), kTraced)) {
    const auto bias = contourBias(camera, pose, places[k], radius);
    if (!bias) continue;
    const Terms terms = termsAt(places[k]);
    normal += terms * terms.t();
    right_x += bias->x / (radius * radius) * terms;
    right_y += bias->y / (radius * radius) * terms;
    ++traced;
  }
  const cv::Matx<double, kTerms, kTerms> inverse = normal.inv(cv::DECOMP_CHOLESKY, &is_known_);
  is_known_ = is_known_ && traced >= kFewest;
  by_x_ = inverse * right_x;
  by_y_ = inverse * right_y;
}

void BiasField::spanOver(const std::vector<cv::Point3d>& places) {
  cv::Point3d low = places.front(), high = low;
  for (const cv::Point3d& place : places) {
    low = {std::min(low.x, place.x), std::min(low.y, place.y), 0.0};
    high = {std::max(high.x, place.x), std::max(high.y, place.y), 0.0};
  }
  middle_ = {0.5 * (low.x + high.x), 0.5 * (low.y + high.y)};
  unit_ = std::max({1e-9, 0.5 * (high.x - low.x), 0.5 * (high.y - low.y)});
}

BiasField::Terms BiasField::termsAt(const cv::Point3d& board) const {
  const double x = (board.x - middle_.x) / unit_, y = (board.y - middle_.y) / unit_;
  Terms terms;
  int k = 0;
  double by_y = 1.0;
  for (int power_y = 0; power_y <= kOrder; ++power_y, by_y *= y) {
    double term = by_y;
    for (int power_x = 0; power_x + power_y <= kOrder; ++power_x, term *= x) terms[k++] = term;
  }
  return terms;
}

std::optional<cv::Point2d> BiasField::biasOf(const cv::Point3d& board, double radius) const {
  if (!is_known_) return std::nullopt;
  const Terms terms = termsAt(board) * (radius * radius);
  return cv::Point2d(by_x_.dot(terms), by_y_.dot(terms));
}

}  // namespace refine
