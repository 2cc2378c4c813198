#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "diagnose/SeenSet.h"
#include "tools/scene/Board.h"
#include "tools/scene/Camera.h"
#include "tools/scene/Misalignment.h"
#include "tools/scene/Pose.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/StereoRig.h"

/// Dots of a board as misaligned cameras see them, by the renderer's own projection, which shares no code with the
/// library; and the calibration that knows nothing of the misalignment.
struct SeenScene {
  /// With the lenses of a model, before the tables of a polynomial one are fitted.
  explicit SeenScene(LensModel of);

  static scene::StereoRig lensesOf(LensModel of);
  static scene::StereoRig fitted(scene::StereoRig rig);

  scene::StereoRig given() const { return fitted(lenses); }
  scene::StereoRig cameras() const { return fitted(scene::misaligned(lenses, misalignment)); }

  static StereoCalibParams calibOf(const scene::StereoRig& rig);

  /// The board in each of the poses that are wished for. `noise` is asked for left x, y, right x, y of each dot.
  SeenSet seen(const std::vector<scene::PoseWish>& wishes) const;

  LensModel model;
  scene::StereoRig lenses;
  scene::Misalignment misalignment;
  scene::Board board;
  double f_scale = 1.0;
  std::function<cv::Point2d(int row, int column)> noise = [](int, int) { return cv::Point2d(); };

 private:
  std::vector<SeenDot> dotsOf(const scene::StereoRig& rig, const scene::Pose& pose) const;
};

/// The field of the renderer's misalignment that a cause is told of, by the cause's name.
/// The causes that a diagnosis may name, by their names.
const std::map<std::string, double scene::Misalignment::*>& misalignmentFields();
double scene::Misalignment::*misalignmentField(const std::string& cause);

/// Two distances, tilted both ways.
std::vector<scene::PoseWish> twoDistances();
