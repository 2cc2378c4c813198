#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "camera/CameraFloats.h"
#include "input/PolarConfig.h"
#include "polar/geometry/CameraPairModel.h"
#include "polar/measure/DetectionMemory.h"
#include "polar/results/PairFigures.h"
#include "polar/results/PairRecords.h"
#include "polar/results/PairStatus.h"

/// A pair as it is handed to an evaluation, and how its points are to be found.
struct PairInput {
  std::int32_t evalu_model = 0;            ///< 0: full measurement; 1: detection only; anything else: no points.
  const char* targetConfigPath = nullptr;  ///< Target configuration, a path or the text itself.
  cv::Mat left_image;
  cv::Mat right_image;
  EvaluationCameras cameras = {};  ///< Of the cameras that took a raw pair; empty for a rectified one.
};

/// What a full measurement reads besides the pair.
struct MeasurementSettings {
  const PolarConfig& config;                    ///< Names the four points to be marked.
  const std::vector<cv::Point3f>& boardPoints;  ///< True positions by id.
  bool eccentricity;                            ///< Compensate the eccentricity of imaged centres.
  const CameraFloats& left_dist;                ///< Lenses to compensate with.
  const CameraFloats& right_dist;
  DetectionMemory& detections;  ///< Of the pair's pictures.
};

/// Finds and numbers the dots of both images, `pair` then holds those that both show. Leaves the canvas, with
/// `eccentricity` the pose report too, and on failure the error text.
PairStatus measurePairPoints(const MeasurementSettings& settings, const PairInput& input, MeasuredPair& pair,
                             PairFigures& figures, std::string& errorText);
