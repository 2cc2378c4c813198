#include "check/run/Diagnosing.h"

#include <fmt/format.h>

#include "check/explain/WarningOf.h"
#include "diagnose/causes/Causes.h"

namespace polarline {
namespace {

/// The cameras that took such pairs are not known, so that nothing can be said of them.
Diagnosis ofRectified(double rows) {
  Diagnosis diagnosis;
  diagnosis.text = fmt::format(
      "The rows differ by {:.3g} px in the mean. No causes are told: the pairs were rectified elsewhere, and the "
      "calibration by which that was done is not known.",
      rows);
  diagnosis.rows_before = diagnosis.rows_after = rows;
  return diagnosis;
}

}  // namespace

void diagnose(const RunInputs& inputs, const CheckOptions& options, const SeenPairs& seen, const MeanRow& rows,
              Check& check) {
  if (inputs.config.frame_work != 0) return;
  check.diagnosis = inputs.areRectified() ? ofRectified(rows.mean()) : diagnoseCauses(seen.set());
  if (inputs.areRectified() || options.write_corrected.empty()) return;
  if (check.diagnosis->corrected) {
    check.correction = correct(inputs.set, options, rows.mean(), check);
  } else {
    check.warnings.push_back(
        warningOf("nothing_to_correct", options.write_corrected + " was not written: " + check.diagnosis->text));
  }
}

}  // namespace polarline
