#pragma once

#include <memory>
#include <opencv2/core.hpp>
#include <stdexcept>
#include <string>

#include "polar/evaluate/PairEvaluator.h"
#include "support/ConsoleCapture.h"
#include "support/ExactPair.h"
#include "support/TempFolder.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Render.h"
#include "tools/scene/TargetText.h"
#include "tools/scene/Truth.h"

/// The first pair of a preset, rendered once in a process, and its target configuration.
class RenderedPair {
 public:
  /// A small ring board, the quickest that the detection finds.
  static const RenderedPair& small() {
    static const RenderedPair pair("ring_320");
    return pair;
  }

  /// A small big-dot board, whose detection can be told to keep some ids only.
  static const RenderedPair& bigDots() {
    static const RenderedPair pair("big_320");
    return pair;
  }

  const scene::Scene& scene() const { return scene_; }
  const scene::PairTruth& truth() const { return truth_; }
  cv::Mat left() const { return images_.left.clone(); }
  cv::Mat right() const { return images_.right.clone(); }
  const std::string& target() const { return target_; }

  /// An evaluator that knows the scene's cameras.
  PairEvaluator evaluator(const PolarConfig& config) const {
    PairEvaluator result(std::make_shared<const PolarConfig>(config));
    result.left_dist = ExactPair::floatsOf(scene_.rig.left);
    result.right_dist = ExactPair::floatsOf(scene_.rig.right);
    return result;
  }

  EvaluationCameras cameras() const {
    EvaluationCameras cameras;
    cameras.left_K = ExactPair::matrixOf(scene_.rig.left);
    cameras.right_K = ExactPair::matrixOf(scene_.rig.right);
    return cameras;
  }

 private:
  explicit RenderedPair(const std::string& preset) {
    const auto made = scene::makePreset(preset);
    if (!made) throw std::runtime_error("no preset " + preset);
    scene_ = *made;
    images_ = scene::renderPair(scene_, 0);
    truth_ = scene::pairTruth(scene_, 0);
    target_ = folder_.write("target.ini", scene::targetIni(scene_));
  }

  TempFolder folder_;
  scene::Scene scene_;
  scene::ImagePair images_;
  scene::PairTruth truth_;
  std::string target_;
};
