#pragma once

#include <cstddef>
#include <deque>
#include <opencv2/core.hpp>

#include "Tallowfen/src/RingTarget.h"
#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/trace/DetectionTrace.h"
#include "platform/ConsoleRecord.h"

/// With fewer detected dots an image is not measured: a pose wants six.
inline constexpr std::size_t kLeastDetected = 6;

/// What was found in a picture.
struct Detection {
  kestrune::RingTarget::Points points;  ///< Numbered.
  kestrune::DetectionTrace trace;       ///< Of a picture with fewer points than are measured; it holds all edges twice.
};

/// The detections of the current pair, most of what a run takes its time for: evaluations that ask for the same picture
/// share one, and each sees and prints as if it had searched for itself. A picture is the same by its pixels, which are
/// compared, and by the configuration of the target that is looked for.
class DetectionMemory {
 public:
  /// `target` is configured, has no detection region, and has searched nothing but 8-bit pictures of this one's size.
  /// Whether it searches this one, too, is open. What is given back stays until the memory forgets.
  const Detection& detect(kestrune::RingTarget& target, const cv::Mat& picture);

  /// What was found in that picture, for those who look at a pair behind its evaluations; null where it was not
  /// searched with that configuration. Nothing is printed.
  const Detection* found(const kestrune::RingTargetConfig& config, const cv::Mat& picture) const;

  /// Before the next pair, none of whose pictures is expected to be one of these.
  void forget() { known_.clear(); }

  /// How many pictures were searched, in all.
  std::size_t searches() const { return searches_; }

 private:
  struct Known {
    kestrune::RingTargetConfig config;
    cv::Mat picture;  ///< A copy: the caller's may change.
    Detection detection;
    console::Record said;
  };

  const Known* find(const kestrune::RingTargetConfig& config, const cv::Mat& picture) const;

  std::deque<Known> known_;
  std::size_t searches_ = 0;
};
