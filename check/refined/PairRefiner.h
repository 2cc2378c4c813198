#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "PolarLinePrecision/CalibrationRecords.h"
#include "camera/CalibratedCamera.h"
#include "check/refined/BoardPlaces.h"
#include "check/refined/RefinedPictures.h"
#include "check/refined/RefinedWarnings.h"
#include "check/set/PictureSource.h"
#include "polar/run/PolarCore.h"
#include "polarline/check.h"

namespace polarline {

/// Whose pictures are refined.
struct RefinerSettings {
  std::array<CalibratedCamera, 2> cameras;  ///< Of the whole pictures.
  BoardPlaces board;                        ///< None of a frame, whose dots may look anywhere.
  std::vector<std::int32_t> frame_ids;      ///< Of a frame's points; empty for other runs.
};

/// Of a set's calibration, and of pairs that were rectified elsewhere: pinholes. Neither knows the board yet.
RefinerSettings refinerOf(const PolarConfig& config, const StereoCalibParams& calib);
RefinerSettings refinerOf(const RectifiedParams& rectified);

/// Refines the dots of each finished pair, every picture once and both at a time, and keeps what came of it until the
/// next.
class PairRefiner final : public CentreRefiner {
 public:
  /// `pictures`: where the run has its pictures from; outlives this.
  PairRefiner(RefinerSettings settings, const ListedPictures& pictures);

  std::array<CentresById, 2> refine(const PairInput& raw, const std::array<CentresById, 2>& places) override;
  void evaluated(std::int32_t status, const PairEvaluator& evaluator) override;

  /// Gives the pair that the run is just done with its refined record. Call it once a pair, in order.
  void addTo(PairCheck& pair);

  /// Of the pair that the run is just done with; without dots for one that was given up.
  const RefinedPictures& pictures() const { return refined_; }
  const std::vector<Warning>& warnings() const { return warnings_.list; }

 private:
  RefinedPicture refineSide(const cv::Mat& picture, const CentresById& places, std::size_t side) const;

  RefinerSettings settings_;
  const ListedPictures& source_;
  RefinedPictures refined_;
  RefinedPair record_;
  RefinedWarnings warnings_;
  bool is_evaluated_ = false;
};

}  // namespace polarline
