#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "PolarLinePrecision/CalibrationRecords.h"
#include "PolarLinePrecision/ResultRecords.h"
#include "bench/Contest.h"
#include "camera/RectificationMaps.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/run/PolarCore.h"

namespace scene {
struct Scene;
}

/// A rendered set with everything that a run of it has in its hands, so that each part of the run can be timed alone.
class PairStage {
 public:
  /// Of a preset of the renderer, with so many pairs.
  PairStage(const std::string& preset, int pairs);

  /// The whole run, every switch of the set on. Without a folder no file is written.
  void wholeRun(const std::string& folder);

  // The parts of a run, of the set's first pair.
  /// Of the four pictures that the evaluations look at: raw left and right, rectified left and right.
  void detect(std::size_t picture);
  /// Once for a run.
  void buildMaps();
  /// Both pictures by the maps that are there.
  void warp();
  /// A pair's evaluations, handed the points that were measured before. Their files go into the folder, if there is
  /// one.
  std::vector<Contestant> evaluations(const std::string& folder);
  /// The figures of the last triangulation as the caller gets them, with each distance and the picture of the last
  /// measurement.
  std::vector<PolarResultRecord> record();
  /// Writes the three pictures that a run saves of a pair.
  void savePictures(const std::string& folder) const;
  /// Both pictures as an evaluation has them measured.
  void measure();

  std::size_t pairs() const { return images_.at(0).size(); }
  /// Of all pictures of the set.
  double pictureBytes() const;
  const PolarCore& core() const { return core_; }
  cv::Size size() const { return raw_.left_image.size(); }

 private:
  explicit PairStage(const scene::Scene& scene);
  PairEvaluator evaluator(const MeasuredPair& points, const std::string& folder) const;
  bool isPoly() const { return core_.lensModel() == LensModel::kPoly; }

  std::string polar_, target_;
  ExportedCalibParams calibration_;
  ImagePairList images_;
  PolarCore core_;
  PairInput raw_, rectified_;
  MeasuredPair raw_points_, rectified_points_;
  PairFigures triangulated_;
  RectificationMaps maps_;
  cv::Mat canvas_;
};
