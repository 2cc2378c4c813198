#include "Tallowfen/src/RingTarget.h"

#include <opencv2/core.hpp>
#include <optional>
#include <ostream>
#include <utility>

#include "Tallowfen/src/TargetDrawing.h"
#include "Tallowfen/src/board/BoardModel.h"
#include "Tallowfen/src/board/StorageFile.h"
#include "Tallowfen/src/board/TargetConfigReader.h"
#include "Tallowfen/src/board/TargetConfigWriter.h"
#include "Tallowfen/src/ellipses/WorkingScale.h"
#include "Tallowfen/src/markers/SplitBigDotsMidResolution.h"
#include "Tallowfen/src/numbering/NumberBoard.h"
#include "Tallowfen/src/numbering/NumberedPoints.h"
#include "Tallowfen/src/zernike/SubPixelCircleDetector.h"
#include "platform/Console.h"

namespace kestrune {
namespace {

// Ground truth of fewer points is no board's.
constexpr std::size_t kFewestBoardPoints = 6;

/// Throws `cv::Exception` of code -215 with this text, in the name of the operation that the caller asked for, unless
/// the condition holds.
void assertThat(bool holds, const char* text, const char* operation) {
  if (!holds) cv::error(cv::Error::StsAssert, text, operation, __FILE__, __LINE__);
}

void checkMask(const cv::Mat& mask, const cv::Mat& image, const char* operation) {
  if (mask.empty()) return;
  assertThat(mask.type() == CV_8UC1, "mask.type() == CV_8UC1", operation);
  assertThat(mask.size() == image.size(), "mask.size() == image.size()", operation);
}

}  // namespace

bool RingTarget::loadConfig(const std::string& config) {
  if (config.empty()) {
    console::out() << "Calibconfig is NULL";
    return false;
  }
  std::optional<RingTargetConfig> record;
  if (isStorageFile(config)) {
    record = readStorageConfig(config);
  } else {
    const std::string text = configText(config);
    if (text.empty()) {
      console::line("Calibconfig is empty or no content was read.");
      return false;
    }
    record = readTextConfig(text);
  }
  std::vector<RingTargetConfig> patterns;
  if (record) patterns.push_back(*record);
  buildBoardModel(patterns);
  return true;
}

bool RingTarget::saveConfig(const std::string& path) {
  writeStorageConfig(path, config_);
  return true;
}

void RingTarget::buildBoardModel(const std::vector<RingTargetConfig>& patterns) {
  // Meant: without a pattern the board is that of the defaults, whatever was configured before.
  const RingTargetConfig config = patterns.empty() ? RingTargetConfig() : patterns.front();
  board_model_ =
      makeBoardModel(config, board_points_3d_);  // First, so that a board that is refused leaves the target as it was.
  config_ = config;
  patterns_ = patterns;
  board_point_ids_.clear();
  for (const morvenkit::BoardPoint& point : board_model_) board_point_ids_.push_back(point.id);
  centre_index_ = centreIndexOf(config_);
  // With its own defaults: only a big dot board hands it the configured limits, at each detection.
  detector_ = std::make_unique<morvenkit::EllipseDetector<double>>();
}

bool RingTarget::setBoardPoints(const std::vector<cv::Point3f>& points) {
  if (points.size() < kFewestBoardPoints) return false;
  board_points_3d_ = points;
  return true;
}

bool RingTarget::setDetectionRegion(const std::vector<float>& region) {
  const bool valid = region.size() == kRegionValues;
  detection_region_ = valid ? region : std::vector<float>();
  return valid;
}

bool RingTarget::startDetection(const cv::Mat& image, const cv::Mat& mask, const char* operation, Points& points,
                                Points& unidentified) {
  last_image_ = image;
  identified_ellipses_.clear();
  unidentified_ellipses_.clear();
  points.clear();
  unidentified.clear();
  trace_ = DetectionTrace();
  checkMask(mask, image, operation);
  if (image.type() != CV_8UC1) {
    console::err() << "[RingTarget::detect] Error: input image wrong type.\n";
    return false;
  }
  if (!detector_) {
    console::err() << "[RingTarget::detect] Error: ellipse detector not initialized.\n";
    return false;
  }
  if (config_.board_type == kBigDotBoard) handLimitsToDetector();
  return true;
}

void RingTarget::handLimitsToDetector() {
  morvenkit::EllipseDetectorParams& params = detector_->params;
  params.bin_method = config_.bin_method;
  params.bin_thresh = config_.bin_thresh;
  params.bin_blocksize = config_.bin_blocksize;
  params.min_radius = config_.min_radius;
  params.max_radius = config_.max_radius;
  params.max_sigma = config_.max_sigma;
  params.min_circularity = config_.min_circularity;
  params.area_mode = true;
}

/// In the middle resolutions another detector works, which makes no two-valued image. Meant: the last one stays.
RingTarget::Ellipses RingTarget::findMarkedEllipses(const cv::Mat& image, const cv::Mat& mask) {
  Ellipses ellipses;
  const WorkingScale scale = workingScaleOf(image.size());
  trace_.working_size = scale.size;
  if (scale.resized) {
    cv::Mat binary;
    trace_.contours = detector_->detect(workingImage(image, scale), ellipses, binary, mask);
    trace_.binary = binary;
    binary_image_ = binary;
    mapToImage(scale, ellipses);
  } else {
    const CircleSearch search = SubPixelCircleDetector(image, ellipses);
    trace_.contours = search.contours;
    trace_.binary = search.binary;
    SplitBigDotsMidResolution(ellipses);
  }
  return ellipses;
}

/// Without an ellipse the detection stopped before it looked for markers, though it did look. What was numbered and is
/// gone was filtered out.
void RingTarget::traceEnd(std::size_t kept) {
  trace_.kept = kept;
  if (trace_.contours.traced == 0) {
    trace_.step = DetectionStep::kContours;
  } else if (trace_.ellipses.empty()) {
    trace_.step = DetectionStep::kEllipses;
  } else if (kept > 0) {
    trace_.step = DetectionStep::kDone;
  } else if (trace_.numbered > 0) {
    trace_.step = DetectionStep::kFilter;
  }
}

bool RingTarget::detect(const cv::Mat& image, Points& points, Points& unidentified, const cv::Mat& mask) {
  if (!startDetection(image, mask, "kestrune::RingTarget::detect", points, unidentified)) return false;
  trace_.ellipses = findMarkedEllipses(image, mask);
  const MarkerContext context{nearbyDotsOf(config_, last_image_.cols), binary_image_};
  NumberedPoints numbered;
  const bool found = numberBoard(config_, context, trace_.ellipses, mask, marker_sizes_, numbered, trace_);
  if (found) {
    filterByIds(config_, numbered);
    filterByRegion(detection_region_, workingScaleOf(image.size()).size, numbered);
  }
  traceEnd(numbered.points.size());
  points = std::move(numbered.points);
  unidentified = std::move(numbered.unidentified);
  identified_ellipses_ = std::move(numbered.identified_ellipses);
  unidentified_ellipses_ = std::move(numbered.unidentified_ellipses);
  return found;
}

bool RingTarget::detectframework(const cv::Mat& image, Points& points, Points& unidentified, const cv::Mat& mask) {
  if (!startDetection(image, mask, "kestrune::RingTarget::detectframework", points, unidentified)) return false;
  Ellipses& ellipses = trace_.ellipses;
  const WorkingScale scale = workingScaleOf(image.size());
  trace_.working_size = scale.size;
  cv::Mat binary;
  trace_.contours = detector_->detectframework(workingImage(image, scale), ellipses, binary, mask);
  trace_.binary = binary;
  binary_image_ = binary;
  mapToImage(scale, ellipses);
  points.assign(ellipses.begin(), ellipses.end());
  trace_.classes.dots = points.size();
  traceEnd(points.size());
  return true;
}

void RingTarget::draw(const cv::Mat& src, cv::Mat& dst, double scale) {
  drawTarget(src, dst, scale, identified_ellipses_, unidentified_ellipses_);
}

}  // namespace kestrune
