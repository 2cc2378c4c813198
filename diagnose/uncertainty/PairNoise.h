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

/// Of the pictures as they are, and of the rectified ones; where the latter has none, the former stands for it.
struct MeasuredNoise {
  PairNoise raw, rectified;
};

/// Of each picture of a pair; both empty: its dots are those of the pictures as they are.
struct PairWarps {
  Warp left, right;
};

/// Of the two pictures of a pair; of large ones the left stands for both, as a detection takes long there. `target`:
/// the board's configuration; `known`: what the run found in the pair's pictures. The same seed gives the same noise.
MeasuredNoise pairNoise(const cv::Mat& left, const cv::Mat& right, const PairWarps& warps, const std::string& target,
                        const DetectionMemory& known, std::uint64_t seed);

/// The noise as the dots of a raw or rectified pair have it: turned and scaled from where the noise was measured to
/// where the dots are, by the affine map between both. Of dots without measured noise their scatter about the local
/// trend. None with fewer than six dots.
std::optional<PairNoise> noiseOf(const std::vector<SharedDot>& dots, const PairNoise& measured, int columns);
