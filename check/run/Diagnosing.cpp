#include "check/run/Diagnosing.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "check/explain/WarningOf.h"
#include "check/run/ConfigDoubts.h"
#include "check/run/Correcting.h"
#include "diagnose/causes/Causes.h"
#include "platform/PlainNumber.h"

namespace polarline {
namespace {

/// With one of these the row differences are those of wrong inputs, and any cause would be made up. A pair whose
/// pictures do not belong together is none: the fit leaves it out.
constexpr std::array<std::string_view, 5> kWrongInputs = {"sides_exchanged", "baseline_unit", "board_mismatch",
                                                          "calibration_mismatch", "lenses_exchanged"};

CausesTold without(const std::string& reason, double rows) {
  CausesTold told;
  told.diagnosis.text =
      fmt::format("The rows differ by {} px in the mean. No causes are told: {}", plain::rounded(rows, 3), reason);
  told.diagnosis.rows_before = told.diagnosis.rows_after = rows;
  return told;
}

CausesTold causesOf(const RunInputs& inputs, const PairLook& pairs) {
  const double rows = pairs.rows().mean();
  if (inputs.areRectified()) {
    return without("the pairs were rectified elsewhere, and the calibration by which that was done is not known.",
                   rows);
  }
  if (turnsRowsAway(inputs.config, inputs.calib)) {
    return without(
        "x_y turns the pictures by a quarter, and the cameras stand side by side, so that these are the "
        "disparities of the dots. Set x_y to 0.",
        rows);
  }
  for (const Warning& warning : pairs.warnings()) {
    if (std::ranges::count(kWrongInputs, warning.code) == 0) continue;
    return without(
        fmt::format("first see to the warning {}; its inputs make such differences by themselves.", warning.code),
        rows);
  }
  return diagnoseCauses(pairs.seen().set());
}

}  // namespace

void diagnose(const RunInputs& inputs, const CheckOptions& options, const PairLook& pairs, Check& check) {
  if (inputs.config.frame_work != 0) return;
  const CausesTold told = causesOf(inputs, pairs);
  check.diagnosis = told.diagnosis;
  if (inputs.areRectified() || options.write_corrected.empty()) return;
  if (told.corrected) {
    check.correction = correct(inputs.set, options, pairs.rows(), *told.corrected, check);
  } else {
    check.warnings.push_back(
        warningOf("nothing_to_correct", options.write_corrected + " was not written: " + check.diagnosis->text));
  }
}

}  // namespace polarline
