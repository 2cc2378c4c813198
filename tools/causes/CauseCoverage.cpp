#include "tools/causes/CauseCoverage.h"

#include <cmath>
#include <ctime>
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

/// The mean row of the same dots by the calibration that the cameras truly have.
double trueMeanRow(const SimulatedSet& set) {
  SeenSet seen = set.seen;
  seen.calib = SeenScene::calibOf(set.scene.cameras());
  return meanRow(seen);
}

void addCauses(CauseCoverage& coverage, const Diagnosis& diagnosis, const scene::Misalignment& truth) {
  constexpr double kShown = 2.95;  // What is told as three.
  bool is_false = false;
  for (const Cause& cause : diagnosis.causes) {
    const double true_value = truth.*misalignmentField(cause.name);
    ++coverage.named;
    if (cause.group > 0) ++coverage.in_groups;
    if (std::abs(cause.value - true_value) > 3.0 * cause.sd) ++coverage.beyond_three;
    if (cause.group == 0 && std::abs(cause.value) < kShown * cause.sd) ++coverage.unsure_alone;
    is_false = is_false || (true_value == 0.0 && std::abs(cause.value) > 3.0 * cause.sd);
  }
  coverage.sets_with_a_false_one += is_false ? 1 : 0;
}

}  // namespace

CauseCoverage coverageOf(const SetKind& kind, std::uint64_t sets, std::uint64_t first) {
  CauseCoverage coverage;
  for (std::uint64_t number = first; number < first + sets; ++number) {
    const SimulatedSet set(kind, number);
    const std::clock_t begin = std::clock();
    const Diagnosis diagnosis = diagnoseCauses(set.seen).diagnosis;
    coverage.seconds += static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    ++coverage.sets;
    addCauses(coverage, diagnosis, set.scene.misalignment);
    if (diagnosis.rows_after > 1.2 * trueMeanRow(set)) ++coverage.rows_too_large;
  }
  return coverage;
}

}  // namespace causes
