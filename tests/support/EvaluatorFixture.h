#pragma once

#include <memory>
#include <opencv2/core.hpp>

#include "polar/evaluate/PairEvaluator.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

/// Evaluations of points that a test sets down instead of measuring them.
struct EvaluatorFixture {
  ConsoleCapture console;
  TempFolder folder;
  PolarConfig config;
  MeasuredPair points;            ///< What every measurement finds.
  PairStatus measured = 0;        ///< Its status.
  std::int32_t asked_model = -1;  ///< The form of measurement that was asked for last.
  int measurements = 0;

  EvaluatorFixture() { config.result_folder = folder.path().string(); }

  void shared(std::int32_t id, const cv::Point2f& pixel_left, const cv::Point2f& pixel_right) {
    points.left_points.push_back(pixel_left);
    points.right_points.push_back(pixel_right);
    leftOnly(id, pixel_left);
    rightOnly(id, pixel_right);
  }
  void leftOnly(std::int32_t id, const cv::Point2f& pixel_left) { points.left_by_id.emplace(id, pixel_left); }
  void rightOnly(std::int32_t id, const cv::Point2f& pixel_right) { points.right_by_id.emplace(id, pixel_right); }

  /// An evaluator with the configuration as it stands now.
  PairEvaluator evaluator() {
    PairEvaluator result(std::make_shared<const PolarConfig>(config));
    result.measurement = [this](std::int32_t evalu_model, MeasuredPair& pair) {
      ++measurements;
      asked_model = evalu_model;
      pair = points;
      return measured;
    };
    return result;
  }
};
