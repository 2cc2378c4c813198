#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/CalibrationRecords.h"
#include "PolarLinePrecision/ProgressCallback.h"
#include "PolarLinePrecision/ResultRecords.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polar/run/PolarCore.h"

/// What one exported call builds and throws away: the configuration, the last error, the results, and the state of the
/// run.
class PolarPrecision {
 public:
  /// A failed allocation of the core leaves it out; every run then returns -1.
  PolarPrecision();
  /// An object without a core.
  explicit PolarPrecision(std::nullptr_t /*no core*/) {}

  // Readers, in the order in which a call uses them. Each gives the status of its reader.
  std::int32_t ReadPolarConfig(const std::string& polarConfig, const std::string& result_folder);
  std::int32_t ReadCalibResult(const std::string& path, StereoCalibParams& calib);
  /// 1 on success, 0 on failure; what was read before a failure stays in the lists.
  std::int32_t ReadImageList(const std::string& path, ImagePairList& images);
  /// Takes a calibration and its board points from the caller's record. Returns 0.
  std::int32_t ConvertCalibParams(const ExportedCalibParams& source, StereoCalibParams& calib);

  // Runs. On status 0 the records are in `results`; otherwise the run's error text is in `errorText`.
  std::int32_t RunImageSet(const RunArguments& arguments, const StereoCalibParams& calib);
  std::int32_t RunFrames(const RunArguments& arguments, const StereoCalibParams& calib);
  std::int32_t RunRectified(const RunArguments& arguments, const RectifiedGeometry& geometry);
  /// The place for deriving temperature coefficients; there is no model yet, so it only takes its inputs. Returns 0.
  std::int32_t TempCompensateRun(const std::string& targetConfigPath, const ImagePairList& images,
                                 const StereoCalibParams& calib);

  /// Gives the results to the caller; 8 without results, the caller's vector then stays. An object that ends with its
  /// call hands them over, as a copy of millions of distances costs as much as measuring them.
  std::int32_t FetchResults(std::vector<PolarResultRecord>& target) &;
  std::int32_t FetchResults(std::vector<PolarResultRecord>& target) &&;

  std::string lastError() const { return errorText; }
  std::int32_t frameWork() const { return config.frame_work; }

  PolarConfig config;
  std::string errorText;
  std::vector<PolarResultRecord> results;
  /// True positions that came with the caller's calibration record; empty otherwise, and what needs them then stays
  /// silent.
  std::vector<cv::Point3f> boardPoints;

 private:
  std::int32_t InitCore();
  template <typename Prepare, typename Run>
  std::int32_t runCore(const ProgressCallback* progress, Prepare prepare, Run run);

  std::unique_ptr<PolarCore> core_;
};

/// The caller's geometry in the run's form, board points narrowed.
RectifiedGeometry rectifiedGeometry(const RectifiedParams& rectified);
