#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "MorvenKit/CalibTarget.h"
#include "MorvenKit/Ellipse.h"
#include "MorvenKit/EllipseDetector.h"
#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"
#include "Tallowfen/src/trace/DetectionTrace.h"

namespace kestrune {

/// A planar board of dots with ring or big-dot markers: configured from a file or text, found and numbered in one image
/// at a time.
class RingTarget : public morvenkit::CalibTarget {
 public:
  using Points = std::vector<morvenkit::CtrlPoint<double>>;
  using Ellipses = std::vector<morvenkit::Ellipse<double>>;

  bool loadConfig(const std::string& config) override;
  bool saveConfig(const std::string& path) override;
  bool setBoardPoints(const std::vector<cv::Point3f>& points) override;
  bool setDetectionRegion(const std::vector<float>& region) override;
  bool detect(const cv::Mat& image, Points& points, Points& unidentified, const cv::Mat& mask) override;
  bool detectframework(const cv::Mat& image, Points& points, Points& unidentified, const cv::Mat& mask) override;
  void draw(const cv::Mat& src, cv::Mat& dst, double scale) override;
  void noOperation() override {}
  /// Each detection makes an image of its own: one that was given out never changes, also as the next input.
  cv::Mat getBinaryImage() const override { return binary_image_; }

  // Of these only `centreIndex` is read by the runs; the others are kept for other users of a target.
  const RingTargetConfig& config() const { return config_; }
  /// The record that was configured; none where the board is that of the defaults.
  const std::vector<RingTargetConfig>& patterns() const { return patterns_; }
  /// Id of the dot in the board's middle.
  std::int32_t centreIndex() const { return centre_index_; }
  const Ellipses& identifiedEllipses() const { return identified_ellipses_; }
  const Ellipses& unidentifiedEllipses() const { return unidentified_ellipses_; }
  /// Of the last detection that recognised the markers.
  const MarkerSizes& markerSizes() const { return marker_sizes_; }
  /// What the last detection saw and where it stopped. Nothing in the detection depends on it.
  const DetectionTrace& trace() const { return trace_; }

 private:
  void buildBoardModel(const std::vector<RingTargetConfig>& patterns);
  /// What both detections begin with; false when the image or the target cannot be used.
  bool startDetection(const cv::Mat& image, const cv::Mat& mask, const char* operation, Points& points,
                      Points& unidentified);
  void handLimitsToDetector();
  /// Classified ellipses in image pixels.
  Ellipses findMarkedEllipses(const cv::Mat& image, const cv::Mat& mask);
  void traceEnd(std::size_t kept);

  RingTargetConfig config_;
  std::vector<RingTargetConfig> patterns_;
  std::unique_ptr<morvenkit::EllipseDetector<double>> detector_;  ///< Made by the configuration.
  std::int32_t centre_index_ = 0;
  Ellipses identified_ellipses_;
  Ellipses unidentified_ellipses_;
  MarkerSizes marker_sizes_;
  std::vector<cv::Point3f> board_points_3d_;
  cv::Mat last_image_;
  cv::Mat binary_image_;
  std::vector<float> detection_region_;
  DetectionTrace trace_;
};

}  // namespace kestrune
