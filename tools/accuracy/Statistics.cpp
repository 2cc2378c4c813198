#include "tools/accuracy/Statistics.h"

#include <algorithm>
#include <cmath>

namespace accuracy {

Errors errorsOf(const std::vector<const Sight*>& sights, const std::vector<std::vector<Measured>>& measured) {
  Errors errors;
  double squares = 0.0, by_bound = 0.0;
  for (std::size_t k = 0; k < sights.size(); ++k) {
    for (const Measured& dot : measured[k]) {
      const TrueDot& truth = sights[k]->dots.at(static_cast<std::size_t>(dot.id));
      if (!truth.measurable) continue;
      const cv::Point2d error = dot.centre - cv::Point2d(truth.centre.x, truth.centre.y);
      ++errors.dots;
      errors.mean += error;
      squares += error.dot(error);
      errors.worst = std::max(errors.worst, cv::norm(error));
      by_bound += 0.5 * (std::pow(error.x / truth.bound.x, 2) + std::pow(error.y / truth.bound.y, 2));
    }
  }
  const double count = std::max(errors.dots, 1);
  errors.mean /= count;
  errors.rms = std::sqrt(squares / count);
  errors.by_bound = std::sqrt(by_bound / count);
  return errors;
}

Calibration calibrationOf(const std::vector<const Sight*>& sights, const std::vector<RefinedPicture>& pictures) {
  Calibration result;
  double ratios = 0.0, predicted = 0.0;
  for (std::size_t k = 0; k < sights.size(); ++k) {
    for (const polarline::RefinedDot& dot : pictures[k].dots) {
      const TrueDot& truth = sights[k]->dots.at(static_cast<std::size_t>(dot.id));
      if (dot.state != polarline::DotState::kRefined || !truth.measurable) continue;
      ++result.refined;
      ratios += 0.5 * (std::pow(dot.x - truth.centre.x, 2) / dot.xx + std::pow(dot.y - truth.centre.y, 2) / dot.yy);
      predicted += dot.xx + dot.yy;
    }
  }
  const double count = std::max(result.refined, 1);
  result.observed_by_predicted = std::sqrt(ratios / count);
  result.mean_predicted = std::sqrt(predicted / count);
  return result;
}

std::vector<Measured> refinedCentres(const RefinedPicture& picture) {
  std::vector<Measured> centres;
  for (const polarline::RefinedDot& dot : picture.dots) {
    if (dot.state == polarline::DotState::kRefined) centres.push_back({dot.id, {dot.x, dot.y}});
  }
  return centres;
}

std::vector<Measured> placesOf(const std::vector<DotPlace>& places) {
  std::vector<Measured> centres;
  centres.reserve(places.size());
  for (const DotPlace& place : places) centres.push_back({place.id, place.pixel});
  return centres;
}

}  // namespace accuracy
