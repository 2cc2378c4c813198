#include "tools/causes/CauseCoverage.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <optional>
#include <vector>

#include "diagnose/causes/Causes.h"
#include "diagnose/causes/RowDifferences.h"

namespace causes {

namespace {

using polarline::Cause;
using polarline::Diagnosis;

double meanRow(const SeenSet& set) {
  const std::vector<double> rows = RowDifferences(set).rows({});
  double sum = 0.0;
  for (const double row : rows) sum += std::abs(row);
  return sum / static_cast<double>(rows.size());
}

/// The mean row of the set's dots by another calibration.
double meanRowBy(const StereoCalibParams& calib, SeenSet seen) {
  seen.calib = calib;
  return meanRow(seen);
}

void addCauses(CauseCoverage& coverage, const Diagnosis& diagnosis, const scene::Misalignment& truth) {
  constexpr double kShown = 2.95;  // What is told as three.
  bool is_false = false;
  for (const Cause& cause : diagnosis.causes) {
    const double true_value = truth.*misalignmentField(cause.name);
    ++coverage.named;
    coverage.squared_errors += std::pow((cause.value - true_value) / cause.sd, 2);
    if (cause.group > 0) ++coverage.in_groups;
    if (std::abs(cause.value - true_value) > 3.0 * cause.sd) ++coverage.beyond_three;
    if (cause.group == 0 && std::abs(cause.value) < kShown * cause.sd) ++coverage.unsure_alone;
    is_false = is_false || (true_value == 0.0 && std::abs(cause.value) > 3.0 * cause.sd);
  }
  coverage.sets_with_a_false_one += is_false ? 1 : 0;
}

int missedOf(const Diagnosis& diagnosis, const scene::Misalignment& truth) {
  return static_cast<int>(std::ranges::count_if(misalignmentFields(), [&](const auto& field) {
    return truth.*field.second != 0.0 && std::ranges::count(diagnosis.causes, field.first, &Cause::name) == 0;
  }));
}

}  // namespace

CauseCoverage coverageOf(const SetKind& kind, std::uint64_t sets, std::uint64_t first) {
  CauseCoverage coverage;
  for (std::uint64_t number = first; number < first + sets; ++number) {
    const SimulatedSet set(kind, number);
    const std::clock_t begin = std::clock();
    const CausesTold told = diagnoseCauses(set.seen);
    coverage.seconds += static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    ++coverage.sets;
    addCauses(coverage, told.diagnosis, set.scene.misalignment);
    coverage.missed += missedOf(told.diagnosis, set.scene.misalignment);
    const double rows = meanRowBy(told.corrected.value_or(set.seen.calib), set.seen);
    if (rows > 1.2 * meanRowBy(SeenScene::calibOf(set.scene.cameras()), set.seen)) ++coverage.rows_too_large;
  }
  return coverage;
}

}  // namespace causes
