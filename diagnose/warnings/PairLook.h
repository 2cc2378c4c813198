#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

#include "camera/LensModel.h"
#include "diagnose/quality/DotFrames.h"
#include "diagnose/warnings/BoardPlace.h"
#include "diagnose/warnings/Scale.h"
#include "input/StereoCalibParams.h"
#include "polar/results/PairObservation.h"
#include "polarline/quality.h"

namespace diagnose {

/// What the pictures of a run are held against.
struct SetFacts {
  std::optional<StereoCalibParams> calib;  ///< None: nothing is said of cameras.
  LensModel model = LensModel::kBrownEight;
  DotGrid grid;
  std::vector<cv::Point3d> board;  ///< True position of each dot, by id; empty where ids are not the board's.
  cv::Point origin;                ///< Of the part of the pictures that the run measures (its crop).
  bool takes_rectified = false;    ///< The pictures came rectified, so that what is seen of those is of the pictures.
};

/// A pair as the run leaves it. Nothing of it is kept.
struct PairView {
  std::size_t index = 0;
  std::array<cv::Mat, 2> pictures;  ///< As they came; empty: not at hand.
  const PairObservation& seen;
  std::map<std::string, double> figures;  ///< That the pair measured itself.
};

/// A dot that does not stand where the others put it.
struct GhostDot {
  std::int32_t id = 0;
  double off = 0.0;  ///< Pixels.
};

struct SideLook {
  cv::Size size;
  polarline::PictureQuality quality;
  std::vector<cv::Point2f> outline;  ///< Of the board, pixels.
  std::size_t found = 0;             ///< Numbered dots; 0: not known.
  std::vector<BoardSight> sights;    ///< The watch drops most.
  std::optional<BoardPlace> place;   ///< Without the single errors.
  bool has_place = false;            ///< There were enough dots for one.
  std::vector<GhostDot> ghosts;
  std::optional<double> other_lens;  ///< What the board misses the dots by through the other camera's lens, pixels.
};

/// What is kept of a pair until all are seen.
struct PairLook {
  std::size_t index = 0;
  std::array<SideLook, 2> sides;
  std::vector<std::int32_t> strange_ids;
  std::optional<cv::Vec3d> baseline;  ///< That the two pictures show.
  std::optional<Slope> scale;         ///< Of the triangulated dots.
  std::optional<double> row_noise;
  std::optional<double> raw_offset;  ///< Median share of their distance by which the run puts dots elsewhere.
  std::map<std::string, double> figures;
};

/// Cameras of the facts; made once a run.
std::optional<CalibratedPair> camerasOf(const SetFacts& facts);

PairLook lookAtPair(const SetFacts& facts, const std::optional<CalibratedPair>& cameras, const PairView& view);

/// Whether the board, as described, does not meet the dots through the lens; not of a board that is seen from behind.
bool isMisfit(const SideLook& side);

/// Root mean square from which on a board does not meet a picture of that width, pixels.
double mostMisfit(int width);

}  // namespace diagnose
