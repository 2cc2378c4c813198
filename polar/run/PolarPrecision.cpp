#include "polar/run/PolarPrecision.h"

#include <chrono>
#include <new>
#include <utility>

#include "PolarLinePrecision/Status.h"
#include "input/CalibrationConversion.h"
#include "input/CalibrationReader.h"
#include "input/ImageList.h"
#include "input/PolarConfigReader.h"
#include "polar/results/RecordExport.h"
#include "polar/run/RunTexts.h"

PolarPrecision::PolarPrecision() : core_(new (std::nothrow) PolarCore) {}

std::int32_t PolarPrecision::ReadPolarConfig(const std::string& polarConfig, const std::string& result_folder) {
  return ::ReadPolarConfig(polarConfig, result_folder, config);
}

std::int32_t PolarPrecision::ReadCalibResult(const std::string& path, StereoCalibParams& calib) {
  return ::ReadCalibResult(path, calib, errorText);
}

std::int32_t PolarPrecision::ReadImageList(const std::string& path, ImagePairList& images) {
  return ::ReadImageList(path, images);
}

std::int32_t PolarPrecision::ConvertCalibParams(const ExportedCalibParams& source, StereoCalibParams& calib) {
  importCalibration(source, calib);
  boardPoints = source.boardPoints;
  return polar_status::kSuccess;
}

std::int32_t PolarPrecision::InitCore() {
  core_->config = std::make_shared<const PolarConfig>(config);
  return polar_status::kSuccess;
}

template <typename Prepare, typename Run>
std::int32_t PolarPrecision::runCore(const ProgressCallback* progress, Prepare prepare, Run run) {
  if (!core_) return polar_status::kNoCore;
  const auto start = std::chrono::steady_clock::now();
  InitCore();
  prepare();
  printTimedLine(run_texts::kInitialised, start, run_texts::kInitialisedInLog);
  if (progress != nullptr && !(*progress)(run_texts::kInitialisedPercent)) {
    errorText = run_texts::kCallTerminated;
    return polar_status::kStoppedByCallback;
  }
  const std::int32_t status = run(*core_);
  if (status == polar_status::kSuccess) return ExportResults(std::move(core_->records), results);
  errorText = core_->errorText;
  return status;
}

std::int32_t PolarPrecision::RunImageSet(const RunArguments& arguments, const StereoCalibParams& calib) {
  return runCore(
      arguments.progress, [this] { core_->boardPoints = boardPoints; },
      [&](PolarCore& core) { return core.ImageSetRun(arguments, calib); });
}

std::int32_t PolarPrecision::RunFrames(const RunArguments& arguments, const StereoCalibParams& calib) {
  return runCore(
      arguments.progress, [this] { core_->boardPoints = boardPoints; },
      [&](PolarCore& core) { return core.FrameRun(arguments, calib); });
}

std::int32_t PolarPrecision::RunRectified(const RunArguments& arguments, const RectifiedGeometry& geometry) {
  return runCore(
      arguments.progress, [] {}, [&](PolarCore& core) { return core.RectificationRun(arguments, geometry); });
}

std::int32_t PolarPrecision::TempCompensateRun(const std::string& /*targetConfigPath*/, const ImagePairList& /*images*/,
                                               const StereoCalibParams& /*calib*/) {
  return polar_status::kSuccess;
}

std::int32_t PolarPrecision::FetchResults(std::vector<PolarResultRecord>& target) & {
  if (results.empty()) return polar_status::kNoResults;
  if (&target == &results) return polar_status::kSuccess;
  // In two steps, so that the caller's vector is whole also when there is no memory for the copy.
  std::vector<PolarResultRecord> copy = results;
  target = std::move(copy);
  return polar_status::kSuccess;
}

std::int32_t PolarPrecision::FetchResults(std::vector<PolarResultRecord>& target) && {
  if (results.empty()) return polar_status::kNoResults;
  if (&target != &results) target = std::move(results);
  return polar_status::kSuccess;
}

RectifiedGeometry rectifiedGeometry(const RectifiedParams& rectified) {
  RectifiedGeometry geometry;
  geometry.cx = rectified.cx;
  geometry.cy = rectified.cy;
  geometry.focal = rectified.focal;
  geometry.baseline = rectified.baseline;
  geometry.disparity_offset = rectified.disparity_offset;
  geometry.boardPoints.assign(rectified.boardPoints.begin(), rectified.boardPoints.end());
  return geometry;
}
