#include <chrono>
#include <memory>
#include <utility>

#include "PolarLinePrecision.h"
#include "exports/ErrorChannel.h"
#include "platform/Files.h"
#include "polar/run/PolarPrecision.h"
#include "polar/run/RunTexts.h"

namespace {

const ProgressCallback kAlwaysGoOn = [](float /*percentage*/) { return true; };

using Clock = std::chrono::steady_clock;

std::string textOf(const char* text, const char* name) {
  requireNonNull(text, name);
  return text;
}

std::int32_t failWith(const PolarPrecision& precision, std::int32_t status) {
  return error_channel::fail(precision.lastError(), status);
}

// The number is a constant of the line; the callback gets another.
void printLoaded(Clock::time_point start) { printTimedLine(run_texts::kLoaded, start, run_texts::kLoadedInLog); }

bool stoppedAt(const ProgressCallback* progress, float percentage) {
  if (progress == nullptr || (*progress)(percentage)) return false;
  error_channel::take(run_texts::kCallTerminated);
  return true;
}

/// The part that the two exports with progress share: from the loaded inputs to the results in the caller's hands.
template <typename Run>
std::int32_t runBetweenReports(PolarPrecision&& precision, const ProgressCallback* progress,
                               std::vector<PolarResultRecord>& results, Run run) {
  if (stoppedAt(progress, 0.001F)) return polar_status::kStoppedByCallback;
  const std::int32_t status = run();
  if (status != polar_status::kSuccess) return failWith(precision, status);
  const std::int32_t fetched = std::move(precision).FetchResults(results);
  if (stoppedAt(progress, 100.0F)) return polar_status::kStoppedByCallback;
  return fetched;
}

}  // namespace

std::int32_t CalPolarLinePrecision(const char* polarConfigPath, const char* targetConfigPath,
                                   const char* calibrationPath, const char* imageListPath,
                                   std::vector<PolarResultRecord>* results) {
  requireNonNull(results, "results");
  const auto precision = std::make_shared<PolarPrecision>();
  const std::string polarConfig = textOf(polarConfigPath, "polarConfigPath");
  const std::string targetConfig = textOf(targetConfigPath, "targetConfigPath");
  const std::string calibration = textOf(calibrationPath, "calibrationPath");
  const std::string imageList = textOf(imageListPath, "imageListPath");

  std::int32_t status = precision->ReadPolarConfig(polarConfig, files::folderOf(imageList));
  if (status != polar_status::kSuccess) return failWith(*precision, status);
  StereoCalibParams calib;
  status = precision->ReadCalibResult(calibration, calib);
  if (status != polar_status::kSuccess) return failWith(*precision, status);
  ImagePairList images;
  precision->ReadImageList(imageList, images);  // A failed list shows later, as a set that is not two lists.

  status = precision->RunImageSet({targetConfig, std::move(images), &kAlwaysGoOn}, calib);
  if (status != polar_status::kSuccess) return failWith(*precision, status);
  return std::move(*precision).FetchResults(*results);
}

std::int32_t CalPolarLinePrecisionOutMat(const char* polarConfigPath, const char* targetConfigPath,
                                         ExportedCalibParams calibration, ImagePairList images,
                                         std::vector<PolarResultRecord>* results, const ProgressCallback* progress,
                                         const char* resultFolder) {
  requireNonNull(results, "results");
  const auto start = Clock::now();
  const auto precision = std::make_shared<PolarPrecision>();
  const std::string polarConfig = textOf(polarConfigPath, "polarConfigPath");
  const std::string targetConfig = textOf(targetConfigPath, "targetConfigPath");

  const std::int32_t status =
      precision->ReadPolarConfig(polarConfig, resultFolder == nullptr ? std::string() : std::string(resultFolder));
  if (status != polar_status::kSuccess) return failWith(*precision, status);
  StereoCalibParams calib;
  precision->ConvertCalibParams(calibration, calib);
  printLoaded(start);
  return runBetweenReports(std::move(*precision), progress, *results, [&] {
    const RunArguments arguments{targetConfig, std::move(images), progress};
    return precision->frameWork() != 0 ? precision->RunFrames(arguments, calib)
                                       : precision->RunImageSet(arguments, calib);
  });
}

std::int32_t CalRecificationPrecision(const char* polarConfigPath, const char* targetConfigPath,
                                      RectifiedParams rectified, const char* imageListPath,
                                      std::vector<PolarResultRecord>* results) {
  requireNonNull(results, "results");
  const auto start = Clock::now();
  const auto precision = std::make_shared<PolarPrecision>();
  const std::string polarConfig = textOf(polarConfigPath, "polarConfigPath");
  const std::string targetConfig = textOf(targetConfigPath, "targetConfigPath");
  const std::string imageList = textOf(imageListPath, "imageListPath");

  const std::int32_t status = precision->ReadPolarConfig(polarConfig, files::folderOf(imageList));
  if (status != polar_status::kSuccess) return failWith(*precision, status);
  const RectifiedGeometry geometry = rectifiedGeometry(rectified);
  printLoaded(start);
  ImagePairList images;
  precision->ReadImageList(imageList, images);
  return runBetweenReports(std::move(*precision), &kAlwaysGoOn, *results, [&] {
    return precision->RunRectified({targetConfig, std::move(images), &kAlwaysGoOn}, geometry);
  });
}

std::int32_t CalTempCompensateCoeff(const char* polarConfigPath, const char* targetConfigPath,
                                    const char* calibrationPath, const char* imageListPath) {
  const auto precision = std::make_shared<PolarPrecision>();
  const std::string polarConfig = textOf(polarConfigPath, "polarConfigPath");
  const std::string targetConfig = textOf(targetConfigPath, "targetConfigPath");
  const std::string calibration = textOf(calibrationPath, "calibrationPath");
  const std::string imageList = textOf(imageListPath, "imageListPath");

  if (precision->ReadPolarConfig(polarConfig, " ") != 0) return failWith(*precision, polar_status::kNoCore);
  StereoCalibParams calib;
  if (precision->ReadCalibResult(calibration, calib) != 0) return failWith(*precision, polar_status::kTempCalibration);
  ImagePairList images;
  if (precision->ReadImageList(imageList, images) == 0) return failWith(*precision, polar_status::kTempImageList);
  if (precision->TempCompensateRun(targetConfig, images, calib) != 0)
    return failWith(*precision, polar_status::kTempCompensation);
  return polar_status::kSuccess;
}
