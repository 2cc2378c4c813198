#include "polar/measure/PairMeasurement.h"

#include <algorithm>
#include <array>
#include <memory>

#include "PolarLinePrecision/Status.h"
#include "Tallowfen/src/RingTarget.h"
#include "platform/Console.h"
#include "polar/measure/BoardPose.h"
#include "polar/measure/EccentricityCompensation.h"
#include "polar/measure/ImageNormalisation.h"
#include "polar/measure/MeasurementCanvas.h"
#include "polar/measure/SharedPoints.h"

namespace {

using kestrune::RingTarget;

/// True positions of no more dots are not handed to the target. One more than the target itself would take: it is
/// meant.
constexpr std::size_t kTooFewBoardPoints = 6;

/// One image of the pair under measurement.
struct SideImage {
  Side side;
  const cv::Mat& image;
  PoseCamera camera;
  PointsById& by_id;
  std::size_t& found;
  std::shared_ptr<const FailedDetection>& failed;
};

/// The camera with its eight coefficients in the order of OpenCV: k1, k2, p1, p2, k3, k4, k5, k6.
PoseCamera poseCamera(const cv::Mat& K, const CameraFloats& camera) {
  const cv::Mat coefficients = (cv::Mat_<double>(8, 1) << camera.k1, camera.k2, camera.p1, camera.p2, camera.k3,
                                camera.k4, camera.k5, camera.k6);
  return {K, coefficients};
}

void printPose(Side side, const std::array<float, 4>& report) {
  constexpr std::array<const char*, 4> kLeftLabels = {"ir_left_rx: ", "ir_left_ry: ", "ir_left_rz: ", "ir_left_dis: "};
  constexpr std::array<const char*, 4> kRightLabels = {
      "ir_right_rx: ", "ir_right_ry: ", "ir_right_rz: ", "ir_right_dis: "};
  const auto& labels = side == Side::kLeft ? kLeftLabels : kRightLabels;
  for (std::size_t k = 0; k < labels.size(); ++k) console::line(labels.at(k), report.at(k));
}

/// The centre to go on with: the detected one, or the compensated one of its edge.
class CentreChoice {
 public:
  CentreChoice() = default;
  CentreChoice(const cv::Mat& K, const cv::Matx33d& R) : compensates_(true), K_(K), R_(R) {}

  cv::Point2f of(const kestrune::morvenkit::CtrlPoint<double>& point, Side side, MeasurementCanvas& canvas) const {
    if (!compensates_) return {static_cast<float>(point.x), static_cast<float>(point.y)};
    canvas.markEdge(side, point.edge_points);
    return compensatedCentre(point.edge_points, K_, R_);
  }

 private:
  bool compensates_ = false;
  cv::Matx33d K_;
  cv::Matx33d R_;
};

bool isChosenPoint(const PolarConfig& config, std::int32_t id) {
  return id == config.TriPoint1_ID || id == config.TriPoint2_ID || id == config.TriPoint3_ID ||
         id == config.TriPoint4_ID;
}

/// One measurement: both sides go through it, the left first.
class Measurement {
 public:
  Measurement(const MeasurementSettings& settings, MeasurementCanvas& canvas, PairFigures& figures)
      : settings_(settings), canvas_(canvas), figures_(figures) {}

  PairStatus measureSide(RingTarget& target, const SideImage& side) {
    const Detection& detection = settings_.detections.detect(target, normaliseTo8Bit(side.image));
    const RingTarget::Points& points = detection.points;
    side.found = points.size();
    console::line("detect point num : ", points.size());
    if (points.size() < kLeastDetected) {
      side.failed = std::make_shared<FailedDetection>(
          FailedDetection{target.config(), detection.trace, side.image.size(), side.image.type()});
      return polar_status::kTooFewDetected;
    }

    const CentreChoice centres = chooseCentres(target, points, side);
    for (const auto& point : points) {
      if (isChosenPoint(settings_.config, point.id)) canvas_.markPoint(side.side, point.id, {point.x, point.y});
      keepFirst(side.by_id, point.id, centres.of(point, side.side, canvas_));
    }
    return polar_status::kSuccess;
  }

 private:
  CentreChoice chooseCentres(const RingTarget& target, const RingTarget::Points& points, const SideImage& side) {
    if (!settings_.eccentricity) return {};
    console::line("use eccentricity!");
    const BoardPose pose = estimateBoardPose(target, points, side.camera);
    printPose(side.side, pose.report);
    auto* const place = figures_.PoseReport.begin() + (side.side == Side::kLeft ? 0 : pose.report.size());
    std::copy(pose.report.begin(), pose.report.end(), place);
    if (side.side == Side::kRight) figures_.setMeasured(FigureGroup::kPose);
    return {side.camera.K, pose.R};
  }

  const MeasurementSettings& settings_;
  MeasurementCanvas& canvas_;
  PairFigures& figures_;
};

}  // namespace

PairStatus measurePairPoints(const MeasurementSettings& settings, const PairInput& input, MeasuredPair& pair,
                             PairFigures& figures, std::string& errorText) {
  const auto target = std::make_shared<RingTarget>();
  if (settings.boardPoints.size() > kTooFewBoardPoints) target->setBoardPoints(settings.boardPoints);
  if (!target->loadConfig(input.targetConfigPath)) {
    errorText = " Fail init camera model! ";
    return polar_status::kTargetConfig;
  }
  MeasurementCanvas canvas(input.left_image, input.right_image);
  const SideImage left = {Side::kLeft,     input.left_image, poseCamera(input.cameras.left_K, settings.left_dist),
                          pair.left_by_id, pair.found[0],    pair.failed[0]};
  const SideImage right = {Side::kRight,     input.right_image, poseCamera(input.cameras.right_K, settings.right_dist),
                           pair.right_by_id, pair.found[1],     pair.failed[1]};
  Measurement measurement(settings, canvas, figures);
  for (const SideImage* side : {&left, &right}) {
    if (side->image.empty()) {
      errorText = " Load Polar imagge fail!";
      return polar_status::kImages;
    }
    const PairStatus status = measurement.measureSide(*target, *side);
    if (status != polar_status::kSuccess) return status;
  }
  figures.detect_canvas = canvas.picture();
  figures.setMeasured(FigureGroup::kPicture);
  appendShared(pair);
  dropUnshared(pair);
  return polar_status::kSuccess;
}
