#pragma once

#include <array>
#include <cstdint>
#include <set>
#include <vector>

#include "camera/CalibratedCamera.h"
#include "camera/LensModel.h"
#include "check/refined/BoardPlaces.h"
#include "check/refined/RefinedPictures.h"
#include "check/refined/RefinedWarnings.h"
#include "check/set/PictureSource.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polar/run/PolarCore.h"
#include "polarline/check.h"

namespace polarline {

/// Whose pictures are refined.
struct RefinerSettings {
  std::array<CalibratedCamera, 2> cameras;  ///< Of the whole pictures.
  BoardPlaces board;                        ///< None of a frame, whose dots may look anywhere.
  std::vector<std::int32_t> frame_ids;      ///< Of a frame's points; empty for other runs.
  std::set<std::int32_t> wanted;            ///< Dots that an evaluation can't do without.
  int board_columns = 0;                    ///< By which uncertainty is told; 0: none is.
};

/// Of cameras and of what the evaluations ask for. Knows neither board nor frame yet.
RefinerSettings refinerOf(const PolarConfig& config, const StereoCalibParams& calib, LensModel model);

/// Refines the dots of each finished pair, every picture once and both at a time, and keeps what came of it until the
/// next. A dot that something hides in either picture is not evaluated again, as its detected place is that of what
/// hides it; only one that the evaluations ask for by its id stays, as without it they would come to nothing.
class PairRefiner final : public CentreRefiner {
 public:
  /// `pictures`: where the run has its pictures from; outlives this.
  PairRefiner(RefinerSettings settings, const ListedPictures& pictures);

  RefinedCentres refine(const PairInput& raw, const std::array<CentresById, 2>& places) override;
  void evaluated(std::int32_t status, const PairEvaluator& evaluator) override;

  /// Gives the pair that the run is just done with its refined record. Call it once a pair, in order.
  void addTo(PairCheck& pair);

  /// Of the pair that the run is just done with; without dots for one that was given up.
  const RefinedPictures& pictures() const { return refined_; }
  const std::vector<Warning>& warnings() const { return warnings_.list; }

 private:
  RefinedPicture refineSide(const cv::Mat& picture, const CentresById& places, std::size_t side) const;
  void leaveOutCovered(const RefinedPicture& picture);
  std::vector<FigureUncertainty> uncertaintyOf(const PairEvaluator& evaluator) const;

  RefinerSettings settings_;
  const ListedPictures& source_;
  RefinedPictures refined_;
  std::set<std::int32_t> left_out_;
  RefinedPair record_;
  RefinedWarnings warnings_;
  bool is_evaluated_ = false;
};

}  // namespace polarline
