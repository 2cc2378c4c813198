#pragma once

#include <memory>
#include <opencv2/core.hpp>
#include <vector>

#include "polar/run/PolarCore.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

/// A run over small grey images with every evaluation switched off, so that each pair finishes at once; tests switch on
/// what they are about.
struct RunFixture {
  ConsoleCapture console;
  TempFolder folder;
  PolarConfig config;
  PolarCore core;
  RunArguments arguments;
  StereoCalibParams calib;
  std::vector<float> reported;
  ProgressCallback progress = [this](float value) {
    reported.push_back(value);
    return !(value >= stop_at);
  };
  float stop_at = 1e9F;

  RunFixture() {
    config.spaceRms_switch = false;
    config.result_folder = folder.path().string();
    calib.left.intrinsics = {100, 101, 20, 15, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8};
    calib.right.intrinsics = {110, 111, 21, 16, 1.1, 1.2, 1.3, 1.4, 1.5, 1.6, 1.7, 1.8};
    calib.extrinsics = {0.0, 0.0, 0.0, -10.0, 0.0, 0.0};
    config.type = 1;
    config.evaluation = 1;
    arguments.targetConfigPath = "board_type: 2";
    arguments.progress = &progress;
  }

  void pairs(std::size_t count, int cols = 40, int rows = 30) {
    const cv::Mat image(rows, cols, CV_8UC1, cv::Scalar(90));
    arguments.images = {std::vector<cv::Mat>(count, image), std::vector<cv::Mat>(count, image)};
  }
  void applyConfig() { core.config = std::make_shared<const PolarConfig>(config); }
};
