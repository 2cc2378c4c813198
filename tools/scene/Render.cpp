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

}  // namespace

Pose rightFromBoard(const StereoRig& rig, const Pose& left_from_board) {
  return {rotationFromAngles(rig.right_from_left_angles) * left_from_board.rotation,
          rightFromLeft(rig, left_from_board.translation)};
}

cv::Mat renderImage(const Camera& camera, const Board& board, const Pose& camera_from_board, const Optics& optics,
                    std::uint64_t seed) {
  const cv::Mat sharp = renderIrradiance(camera, board, camera_from_board, optics);
  return digitised(illuminated(blurred(sharp, optics.blur_sigma), optics), optics, seed);
}

ImagePair renderPair(const Scene& scene, std::size_t index) {
  const Pose& left_from_board = scene.left_from_board.at(index);
  const Pose right_from_board = rightFromBoard(scene.rig, left_from_board);
  return {
      renderImage(scene.rig.left, scene.board, left_from_board, scene.optics, imageSeed(scene.seed, 2 * index)),
      renderImage(scene.rig.right, scene.board, right_from_board, scene.optics, imageSeed(scene.seed, 2 * index + 1))};
}

std::vector<ImagePair> renderAll(const Scene& scene) {
  std::vector<ImagePair> pairs;
  for (std::size_t index = 0; index < scene.left_from_board.size(); ++index) pairs.push_back(renderPair(scene, index));
  return pairs;
}

}  // namespace scene
