#include "check/run/Correcting.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "camera/LensModel.h"
#include "check/explain/WarningOf.h"
#include "platform/Files.h"
#include "platform/PlainNumber.h"
#include "platform/WholeFile.h"
#include "polarline/calibration.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

/// The run that only shows whether the rows have become better.
MeanRow rowsWith(const Set& set, const CheckOptions& options, const std::string& calibration) {
  Set corrected = set;
  corrected.calibration = calibration;
  corrected.limits.clear();
  CheckOptions again;
  again.settings = options.settings;
  again.pairs = options.pairs;
  again.pictures = options.pictures;
  again.go_on = options.go_on;
  again.refine = options.refine;
  again.diagnose = again.uncertainty = false;
  MeanRow rows;
  again.on_pair = [&rows](const PairCheck& pair, std::size_t) { rows.add(pair); };
  again.keep_points = false;
  check(corrected, again);
  return rows;
}

}  // namespace

void MeanRow::Rows::add(const std::vector<float>& rows) {
  for (const float row : rows) {
    if (!std::isfinite(row)) continue;
    sum += static_cast<double>(std::abs(row));
    ++count;
  }
}

double MeanRow::Rows::mean() const {
  return count == 0 ? std::numeric_limits<double>::quiet_NaN() : sum / static_cast<double>(count);
}

void MeanRow::add(const PairCheck& pair) {
  if (!pair.finished) return;
  ++pairs_;
  detected_.add(pair.points.dy);
  if (!pair.refined || !pair.refined->problem.empty()) return;
  ++refined_pairs_;
  refined_.add(pair.refined->points.dy);
}

void requireCorrectable(const std::string& path, int type) {
  if (path.empty()) return;
  if (lensModelOf(type) == LensModel::kPoly)
    throw InputError(path, "a JSON calibration can't hold the tables of a polynomial lens (type 3)");
  if (files::extensionOf(path) != "json") throw InputError(path, "a name that ends in .json was wanted");
}

Correction correct(const Set& set, const CheckOptions& options, const MeanRow& before, Check& check) {
  Correction correction;
  correction.path = options.write_corrected;
  correction.rows_predicted = check.diagnosis->rows_after;
  const std::string calibration = calibrationJson(*check.diagnosis->corrected);
  const whole_file::PartialFolder trial(correction.path);
  whole_file::write(trial.path() / "calib.json", calibration);
  const MeanRow after = rowsWith(set, options, (trial.path() / "calib.json").string());
  correction.rows_seen = after.mean();
  if (options.go_on && !options.go_on()) return correction;
  whole_file::write(correction.path, calibration);
  const bool are_refined = before.isRefined() && after.isRefined();  // Else the two would be of different centres.
  const double rows_before = are_refined ? before.mean() : before.detected();
  const double rows_after = are_refined ? after.mean() : after.detected();
  if (!(rows_after < rows_before)) {
    check.warnings.push_back(
        warningOf("correction_no_better",
                  fmt::format("Checked again with {}, the rows differ by {} px in the mean; "
                              "{} px without the correction.",
                              correction.path, plain::rounded(rows_after, 3), plain::rounded(rows_before, 3))));
  }
  return correction;
}

}  // namespace polarline
