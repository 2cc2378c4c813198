#include "diagnose/causes/Causes.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

#include "camera/CalibratedPair.h"
#include "diagnose/causes/CauseWords.h"
#include "diagnose/causes/FoundCauses.h"
#include "diagnose/causes/RowFrames.h"

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

polarline::Camera cameraOf(const CameraCalib& calib, const cv::Size& size) {
  const auto& n = calib.intrinsics;
  return {{size.width, size.height}, n[0], n[1], n[2], n[3], {n[4], n[5], n[6], n[7], n[8], n[9]}, n[10], n[11]};
}

polarline::Calibration publicForm(const StereoCalibParams& calib, const SeenSet& set) {
  const auto& e = calib.extrinsics;
  return {static_cast<int>(set.model),
          cameraOf(calib.left, set.size),
          cameraOf(calib.right, set.size),
          e[0],
          e[1],
          e[2],
          e[3],
          e[4],
          e[5]};
}

CausesTold without(const std::string& reason) {
  CausesTold told;
  told.diagnosis.text = "No causes are told: " + reason;
  told.diagnosis.rows_before = told.diagnosis.rows_after = kNone;
  return told;
}

bool standsSideBySide(const SeenSet& set) {
  const CalibratedPair cameras(set.calib, set.model);
  if (!std::isfinite(cv::norm(cameras.T)) || cv::norm(cameras.T) == 0.0) return false;
  const cv::Vec3d baseline = rowFrames(cameras.R, cameras.T).right * cameras.T;
  return std::abs(baseline[0]) > std::abs(baseline[1]);
}

polarline::Cause causeOf(const FoundCauses& found, std::size_t place) {
  const auto kind = static_cast<CauseKind>(place);
  polarline::Cause cause;
  cause.name = cause_words::nameOf(kind);
  cause.unit = cause_words::unitOf(kind);
  cause.value = cause_words::told(kind, found.values[place]);
  cause.sd = cause_words::told(kind, found.sds[place]);
  cause.share = found.shares[place];
  cause.text = cause_words::ofCause(found, kind);
  cause.group = found.choice.group[place];
  return cause;
}

}  // namespace

CausesTold diagnoseCauses(const SeenSet& set) {
  if (!standsSideBySide(set)) return without("they are known for cameras side by side only.");
  const RowDifferences differences(set);
  const std::size_t dots = differences.dots().size();
  if (dots < kFewestDots) {
    return without(fmt::format("{} dots were seen in both pictures; {} were wanted.", dots, kFewestDots));
  }
  FoundCauses found = findCauses(differences, expectedSizes(set.calib));
  if (!(found.rows_after < found.rows_before)) {  // They explain nothing, whatever the weighted fit says.
    found.choice = {};
    found.rows_after = found.rows_before;
  }
  CausesTold told;
  polarline::Diagnosis& diagnosis = told.diagnosis;
  for (std::size_t place = 0; place < kCauses; ++place) {
    if (found.choice.named.test(place)) diagnosis.causes.push_back(causeOf(found, place));
  }
  diagnosis.text = cause_words::ofAll(found);
  diagnosis.rows_before = found.rows_before;
  diagnosis.rows_after = found.rows_after;
  diagnosis.pattern_left = cause_words::hasPattern(found);
  if (diagnosis.causes.empty()) return told;
  told.corrected = misaligned(set.calib, set.model, found.values);
  if (set.model != LensModel::kPoly) diagnosis.corrected = publicForm(*told.corrected, set);
  return told;
}
