#include "tools/scene/Render.h"

#include "tools/scene/Irradiance.h"
#include "tools/scene/Random.h"
#include "tools/scene/Sensor.h"

namespace scene {
namespace {

std::uint64_t imageSeed(std::uint64_t scene_seed, std::uint64_t image) {
  Random mixed(scene_seed);
  return Random(mixed.bits() + image).bits();
}

/// What falls on the sensor, in greys.
cv::Mat lightOn(const Camera& camera, const Board& board, const Pose& camera_from_board, const Optics& optics) {
  const cv::Mat sharp = renderIrradiance(camera, board, camera_from_board, optics);
  return illuminated(blurred(sharp, optics.blur_sigma), optics);
}

bool areEqual(const Pose& a, const Pose& b) {
  const Point3& to = b.translation;
  return a.rotation.values == b.rotation.values && a.translation.x == to.x && a.translation.y == to.y &&
         a.translation.z == to.z;
}

}  // namespace

Pose rightFromBoard(const StereoRig& rig, const Pose& left_from_board) {
  return {rotationFromAngles(rig.right_from_left_angles) * left_from_board.rotation,
          rightFromLeft(rig, left_from_board.translation)};
}

cv::Mat renderImage(const Camera& camera, const Board& board, const Pose& camera_from_board, const Optics& optics,
                    std::uint64_t seed) {
  return digitised(lightOn(camera, board, camera_from_board, optics), optics, seed);
}

ImagePair PairRenderer::render(std::size_t index) {
  const Pose& pose = scene_.left_from_board.at(index);
  const Optics& optics = scene_.optics;
  if (!pose_ || !areEqual(*pose_, pose)) {
    const StereoRig& rig = scene_.rig;
    light_ = {lightOn(rig.left, scene_.board, pose, optics),
              lightOn(rig.right, scene_.board, rightFromBoard(rig, pose), optics)};
    pose_ = pose;
  }
  return {digitised(light_.left, optics, imageSeed(scene_.seed, 2 * index)),
          digitised(light_.right, optics, imageSeed(scene_.seed, 2 * index + 1))};
}

ImagePair renderPair(const Scene& scene, std::size_t index) { return PairRenderer(scene).render(index); }

std::vector<ImagePair> renderAll(const Scene& scene) {
  PairRenderer renderer(scene);
  std::vector<ImagePair> pairs;
  for (std::size_t index = 0; index < scene.left_from_board.size(); ++index) pairs.push_back(renderer.render(index));
  return pairs;
}

}  // namespace scene
