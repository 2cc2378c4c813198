#pragma once

#include <PolarLinePrecision.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/HiddenDot.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"

/// A run of a rendered set in memory, whose calibration, images and callback a test may spoil.
struct MemoryRun {
  const RenderedSet& set;
  ExportedCalibParams calibration = set.calibration();
  ImagePairList images = set.images();
  TempFolder folder;            ///< Takes the results.
  std::vector<float> reported;  ///< What the callback was told.
  float stop_at = 1e9F;         ///< From here on the callback says no.

  explicit MemoryRun(const RenderedSet& rendered) : set(rendered) {}

  /// Two pairs of a small board with big dots; rendered once in a process.
  static const RenderedSet& twoPairs() {
    static const RenderedSet two(small_scene::withSecondPose(small_scene::dots()));
    return two;
  }
  /// The same as two frames.
  static const RenderedSet& twoFrames() {
    static const RenderedSet two(small_scene::withSecondPose(small_scene::frame()));
    return two;
  }

  RunOutcome run(const std::string& polar) {
    RunOutcome outcome;
    const ProgressCallback progress = [this](float percentage) {
      reported.push_back(percentage);
      return !(percentage >= stop_at);
    };
    const ConsoleCapture console;
    outcome.status = CalPolarLinePrecisionOutMat(polar.c_str(), set.file("target.ini").c_str(), calibration, images,
                                                 &outcome.records, &progress, folder.path().c_str());
    outcome.out = console.out();
    outcome.err = console.err();
    outcome.error_text = errorText();
    return outcome;
  }

  /// Takes a dot away from one image of a pair.
  void hide(std::size_t side, std::size_t pair, std::int32_t id) {
    const scene::PairTruth truth = scene::pairTruth(set.scene(), pair);
    const scene::DotTruth& dot = truth.dots.at(static_cast<std::size_t>(id));
    images.at(side).at(pair) = images[side][pair].clone();
    hideDot(images[side][pair], side == 0 ? dot.ellipse_left : dot.ellipse_right);
  }
  /// Leaves nothing but grey of one image.
  void blank(std::size_t side, std::size_t pair) {
    images.at(side).at(pair) = cv::Mat(images[side][pair].size(), images[side][pair].type(), cv::Scalar(90));
  }
};
