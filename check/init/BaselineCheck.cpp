#include "check/init/BaselineCheck.h"

#include "check/init/SeenCameras.h"
#include "diagnose/warnings/ShownBaseline.h"

namespace init {

std::vector<polarline::Warning> judgeBaseline(const polarline::Calibration& calibration,
                                              const polarline::BoardDescription& board, const SeenBoard& left,
                                              const SeenBoard& right) {
  const CalibratedPair cameras = camerasOf(calibration);
  const auto a = boardPose(cameras.left, board, left);
  const auto b = boardPose(cameras.right, board, right);
  if (!a || !b) return {};
  const auto found = diagnose::judgeBaseline(diagnose::shownBaseline(*a, *b), cameras.T, 0);
  return found ? std::vector{*found} : std::vector<polarline::Warning>();
}

}  // namespace init
