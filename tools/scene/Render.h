#pragma once

#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "tools/scene/Scene.h"

namespace scene {

/// One image: the board as `camera` sees it, through blur, light and sensor.
cv::Mat renderImage(const Camera& camera, const Board& board, const Pose& camera_from_board, const Optics& optics,
                    std::uint64_t seed);

/// The two images of one moment.
struct ImagePair {
  cv::Mat left;
  cv::Mat right;
};

/// Renders pairs of a scene, which must outlive it. Of a pose that comes twice in a row, as where pictures of one place
/// are repeated, the light is kept, which takes nearly all of the time: only the noise is another.
class PairRenderer {
 public:
  explicit PairRenderer(const Scene& scene) : scene_(scene) {}

  /// As `renderPair` has it, whatever was rendered before.
  ImagePair render(std::size_t index);

 private:
  const Scene& scene_;
  std::optional<Pose> pose_;  ///< Of the board in the left camera's frame, whose light is kept.
  ImagePair light_;
};

/// The pair of the index-th pose. Each image has noise of its own, fixed by the scene's seed, the index and the side.
/// Precondition: `index` is a pose of the scene.
ImagePair renderPair(const Scene& scene, std::size_t index);

/// All pairs of the scene, in memory.
std::vector<ImagePair> renderAll(const Scene& scene);

}  // namespace scene
