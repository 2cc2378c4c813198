#include "refine/board/BoardSlope.h"

namespace refine {

std::optional<cv::Matx22d> slopeOnBoard(const CalibratedCamera& camera, const CameraPose& pose,
                                        const cv::Point3d& board, double step) {
  const auto right = camera.pixelOf(pose.toCamera(board + cv::Point3d(step, 0, 0)));
  const auto left = camera.pixelOf(pose.toCamera(board - cv::Point3d(step, 0, 0)));
  const auto below = camera.pixelOf(pose.toCamera(board + cv::Point3d(0, step, 0)));
  const auto above = camera.pixelOf(pose.toCamera(board - cv::Point3d(0, step, 0)));
  if (!right || !left || !below || !above) return std::nullopt;
  return cv::Matx22d(right->x - left->x, below->x - above->x, right->y - left->y, below->y - above->y) * (0.5 / step);
}

}  // namespace refine
