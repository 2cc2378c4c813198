#include <memory>
#include <utility>
#include <vector>

#include "PolarLinePrecision/Status.h"
#include "Tallowfen/src/RingTarget.h"
#include "platform/Console.h"
#include "platform/Pictures.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/frame/FrameSide.h"
#include "polar/geometry/PairTriangulation.h"
#include "polar/geometry/PointDistance.h"

namespace {

/// Frame points of both images, paired by their place in the list. The place stands for the id meanwhile, since a
/// frame's ids may be in any order.
MeasuredPair pairByPlace(const FrameSide& left, const FrameSide& right) {
  const auto centreOf = [](const kestrune::morvenkit::CtrlPoint<double>& point) {
    return cv::Point2f(static_cast<float>(point.x), static_cast<float>(point.y));
  };
  MeasuredPair pair;
  for (std::size_t k = 0; k < left.points.size(); ++k) {
    pair.left_points.push_back(centreOf(left.points[k]));
    pair.right_points.push_back(centreOf(right.points.at(k)));
    pair.left_by_id.emplace(static_cast<std::int32_t>(k), pair.left_points.back());
    pair.right_by_id.emplace(static_cast<std::int32_t>(k), pair.right_points.back());
  }
  return pair;
}

double measuredLength(const PairPointRecord& a, const PairPointRecord& b) {
  return lengthByDoubles({a.x - b.x, a.y - b.y, a.z - b.z});
}

/// Ids of the judged pairs are places in the lists, counted from 1.
std::size_t placeOf(std::int32_t id) { return static_cast<std::size_t>(static_cast<std::int64_t>(id) - 1); }

void judgeDistances(PairEvaluator& evaluator) {
  const auto& truth = evaluator.config().Frame_3D;
  evaluator.figures.frameValues.clear();
  for (const std::vector<std::int32_t>& judged : evaluator.config().Frame_ID_DIS) {
    const std::int32_t a = judged.at(0);
    const std::int32_t b = judged.at(1);
    const double true_length = lengthByDoubles(narrowedDifference(truth.at(placeOf(a)), truth.at(placeOf(b))));
    const double measured_length =
        measuredLength(evaluator.figures.pairPoints.at(placeOf(a)), evaluator.figures.pairPoints.at(placeOf(b)));
    const auto error = static_cast<float>(measured_length - true_length);
    console::line(a, "---", b, ": ", error);
    evaluator.figures.frameValues.push_back(error);
  }
  evaluator.figures.setMeasured(FigureGroup::kFrame);
}

/// Triangulates into `pairPoints` and gives the predicted right pixels.
std::vector<cv::Point2f> triangulateFrame(PairEvaluator& evaluator, const MeasuredPair& pair,
                                          const EvaluationCameras& cameras, const CameraPairModel& model) {
  TriangulatedPair triangulated = triangulateShared(pair, cameras, model);
  evaluator.figures.pairPoints = std::move(triangulated.records);
  evaluator.figures.distances.reset();
  for (std::size_t k = 0; k < evaluator.figures.pairPoints.size(); ++k) {
    evaluator.figures.pairPoints[k].id = evaluator.config().Frame_ID[k];
    evaluator.seen.raw.push_back({evaluator.config().Frame_ID[k], pair.left_points[k], pair.right_points[k]});
  }
  evaluator.seen.positions = std::move(triangulated.points_left);
  return std::move(triangulated.predicted_right);
}

bool passesResidual(PairEvaluator& evaluator, const cv::Mat& right_image, const MeasuredPair& pair,
                    const std::vector<cv::Point2f>& predicted_right) {
  std::vector<float> errors;
  if (!evaluator.CheckResidual(right_image, pair.right_points, predicted_right, errors)) return false;
  for (std::size_t k = 0; k < errors.size(); ++k) evaluator.figures.pairPoints[k].right_err = errors[k];
  evaluator.seen.residuals = std::move(errors);
  return true;
}

MeasuredPair measureFrame(PairEvaluator& evaluator, const PairInput& raw) {
  // Only for the pose report and, should the frame fail below, the canvas: its points are not used and its status does
  // not count.
  MeasuredPair board;
  evaluator.MeasurePairPoints(raw, board);

  const PolarConfig& config = evaluator.config();
  const auto target = std::make_unique<kestrune::RingTarget>();
  target->loadConfig(raw.targetConfigPath);
  const FrameSide left = findFramePoints(*target, raw.left_image, {config.Frame_ID, config.Frame_IRL});
  const FrameSide right = findFramePoints(*target, raw.right_image, {config.Frame_ID, config.Frame_IRR});
  evaluator.figures.setMeasured(FigureGroup::kPicture);
  evaluator.figures.detect_canvas = pictures::sideBySide(left.picture, right.picture, left.picture.type());
  MeasuredPair pair = pairByPlace(left, right);
  if (evaluator.on_measured) evaluator.on_measured(pair);
  return pair;
}

}  // namespace

PairStatus PairEvaluator::CalFramePrecision(const PairInput& raw, const CameraIntrinsicsBase& left_camera,
                                            const CameraIntrinsicsBase& right_camera) {
  const MeasuredPair pair = frame_measurement ? frame_measurement() : measureFrame(*this, raw);
  console::useFixedNotation();
  const ObjectPairModel model(left_camera, right_camera);
  const std::vector<cv::Point2f> predicted_right = triangulateFrame(*this, pair, raw.cameras, model);
  if (config().triangulate_residual_switch != 0 && !passesResidual(*this, raw.right_image, pair, predicted_right)) {
    return polar_status::kTooFewShared;
  }
  judgeDistances(*this);
  return polar_status::kSuccess;
}
