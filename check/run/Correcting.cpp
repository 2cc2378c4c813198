#include "check/run/Correcting.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <vector>

#include "calibrations/rewrite/BinaryRewrite.h"
#include "calibrations/rewrite/JsonRewrite.h"
#include "camera/LensModel.h"
#include "check/explain/WarningOf.h"
#include "platform/Files.h"
#include "platform/PlainNumber.h"
#include "platform/WholeFile.h"
#include "polarline/calibration.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

constexpr const char* kBinary = "bin";
constexpr const char* kJson = "json";

std::string bytesOf(const std::string& path) {
  constexpr std::size_t kMost = std::size_t{1} << 24;
  std::vector<std::uint8_t> bytes;
  if (files::readBytes(path, kMost, bytes) != 0) throw InputError(path, "can't be read any more");
  return {bytes.begin(), bytes.end()};
}

/// The given file with what was corrected, or JSON of nothing else where the given one is of another kind.
std::string correctedFile(const std::string& given, const std::string& path, const StereoCalibParams& corrected,
                          const Diagnosis& diagnosis) {
  const std::string bytes = bytesOf(given);
  if (files::extensionOf(path) == kBinary) {
    const std::vector<std::uint8_t> binary = withRightCamera({bytes.begin(), bytes.end()}, corrected);
    return {binary.begin(), binary.end()};
  }
  if (files::extensionOf(given) == kJson) {
    if (const auto json = withInfraredPair(bytes, *diagnosis.corrected)) return *json;
  }
  return calibrationJson(*diagnosis.corrected);
}

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

void requireCorrectable(const std::string& path, int type, const std::string& calibration) {
  if (path.empty()) return;
  const std::string extension = files::extensionOf(path);
  const bool is_given_binary = files::extensionOf(calibration) == kBinary;
  if (extension == kBinary && is_given_binary) return;
  if (lensModelOf(type) == LensModel::kPoly)
    throw InputError(path,
                     "only a binary calibration holds the tables of a polynomial lens (type 3): a name that ends "
                     "in .bin was wanted");
  if (extension == kBinary)
    throw InputError(path, fmt::format("a binary calibration is written from a binary one, and {} is none: a name that "
                                       "ends in .json was wanted",
                                       calibration));
  if (extension != kJson)
    throw InputError(path, fmt::format("a name that ends in .json{} was wanted", is_given_binary ? " or .bin" : ""));
}

std::optional<Correction> correct(const Set& set, const CheckOptions& options, const MeanRow& before,
                                  const StereoCalibParams& corrected, Check& check) {
  const std::string& path = options.write_corrected;
  const std::string calibration = correctedFile(set.calibration, path, corrected, *check.diagnosis);
  const whole_file::PartialFolder trial(path);
  const std::filesystem::path tried = trial.path() / ("calib." + files::extensionOf(path));
  whole_file::write(tried, calibration);
  const MeanRow after = rowsWith(set, options, tried.string());
  if (options.go_on && !options.go_on()) return std::nullopt;
  const bool are_refined = before.isRefined() && after.isRefined();  // Else the two would be of different centres.
  const double rows_before = are_refined ? before.mean() : before.detected();
  const double rows_after = are_refined ? after.mean() : after.detected();
  if (!(rows_after < rows_before)) {
    check.warnings.push_back(
        warningOf("correction_no_better",
                  fmt::format("{} was not written: checked again with it, the rows differ by {} px in the mean; "
                              "{} px without the correction.",
                              path, plain::rounded(rows_after, 3), plain::rounded(rows_before, 3))));
    return std::nullopt;
  }
  whole_file::write(path, calibration);
  return Correction{path, check.diagnosis->rows_after, after.mean()};
}

}  // namespace polarline
