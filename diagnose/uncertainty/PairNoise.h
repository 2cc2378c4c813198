#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

#include "diagnose/uncertainty/CentreNoise.h"
#include "polar/results/PairObservation.h"

/// What the noise of a pair's pictures does to the dots.
struct PairNoise {
  CentreNoise left, right;
};

/// Of the two pictures of a pair; of large ones the left stands for both, as a detection takes long there. `target`:
/// the board's configuration. The same seed gives the same noise.
PairNoise pairNoise(const cv::Mat& left, const cv::Mat& right, const std::string& target, std::uint64_t seed);

/// The noise as the dots of a raw or rectified pair have it: turned and scaled from where the noise was measured to
/// where the dots are, by the affine map between both. Of dots without measured noise their scatter about the local
/// trend. None with fewer than six dots.
std::optional<PairNoise> noiseOf(const std::vector<SharedDot>& dots, const PairNoise& measured, int columns);
