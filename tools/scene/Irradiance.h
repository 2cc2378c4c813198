#pragma once

#include <opencv2/core.hpp>

#include "tools/scene/Board.h"
#include "tools/scene/Camera.h"
#include "tools/scene/Optics.h"
#include "tools/scene/Pose.h"

namespace scene {

/// The sharp picture before lens blur, light and sensor: greys as single-precision floats, one channel. Each pixel is
/// the mean over its square. A pixel that no edge crosses takes its centre's grey; the others are sampled supersampling
/// x supersampling times, the samples' places on the board from a second-order expansion around the pixel (off by less
/// than 1e-4 pixels).
cv::Mat renderIrradiance(const Camera& camera, const Board& board, const Pose& camera_from_board, const Optics& optics);

}  // namespace scene
