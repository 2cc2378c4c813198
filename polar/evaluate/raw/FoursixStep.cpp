#include "polar/evaluate/raw/FoursixStep.h"

#include <array>

#include "PolarLinePrecision/Status.h"
#include "polar/geometry/FourPointMethod.h"

namespace {

/// The k-th point of the list belongs to the k-th id of the left map, as in the records. Ids that ran ahead of the list
/// have no point.
four_points::Measured findPoints(const PolarConfig& config, const MeasuredPair& pair,
                                 const std::vector<cv::Point3f>& points_left, const cv::Point3f& initial) {
  const std::array<std::int32_t, 4> wanted = {config.TriPoint1_ID, config.TriPoint2_ID, config.TriPoint3_ID,
                                              config.TriPoint4_ID};
  four_points::Measured found = {initial, initial, initial, initial};
  auto numbered = pair.left_by_id.begin();
  for (std::size_t i = 0; i < points_left.size() && numbered != pair.left_by_id.end(); ++i, ++numbered) {
    if (!pair.right_by_id.contains(numbered->first)) continue;
    for (std::size_t k = 0; k < wanted.size(); ++k) {
      if (wanted[k] == numbered->first) found[k] = points_left[i];
    }
  }
  return found;
}

}  // namespace

PairStatus evaluateFoursix(PairEvaluator& evaluator, const MeasuredPair& pair,
                           const std::vector<cv::Point3f>& points_left, const FoursixRules& rules) {
  const PolarConfig& config = evaluator.config();
  const four_points::Measured points = findPoints(config, pair, points_left, rules.initial);
  const int missing = four_points::firstMissing(points, rules.missing_sum);
  if (missing >= 0) {
    evaluator.errorText = four_points::missingText(missing);
    return polar_status::kPointMissing;
  }
  auto errors = four_points::distanceErrors(
      points, {config.TriPoint1_GT, config.TriPoint2_GT, config.TriPoint3_GT, config.TriPoint4_GT});
  if (rules.replaces_implausible) four_points::replaceImplausible(points, errors);
  evaluator.figures.tri_dis = four_points::withExtremes(errors);
  evaluator.figures.setMeasured(FigureGroup::kTriDis);
  return polar_status::kSuccess;
}
