#include "diagnose/uncertainty/FitRepeater.h"

#include <Eigen/Geometry>
#include <Eigen/LU>
#include <cmath>
#include <limits>

#include "camera/LensModel.h"
#include "polar/evaluate/raw/CountedErrors.h"
#include "polar/geometry/RigidOntoBoard.h"

namespace {

std::vector<Eigen::Vector3d> columnsOf(const Eigen::Matrix3Xd& points) {
  std::vector<Eigen::Vector3d> columns;
  columns.reserve(static_cast<std::size_t>(points.cols()));
  for (Eigen::Index k = 0; k < points.cols(); ++k) columns.emplace_back(points.col(k));
  return columns;
}

/// As in the evaluation of polynomial cameras: what is farther off is left out, pixels.
double projectionLimit(const PolarConfig& config) {
  return lensModelOf(config.type) == LensModel::kPoly ? kLargestProjectionError
                                                      : std::numeric_limits<double>::infinity();
}

}  // namespace

FitRepeater::FitRepeater(const PairEvaluator& evaluator, const DotScene& raw, const Eigen::Matrix3Xd& positions,
                         const Eigen::Matrix3Xd& truth)
    : has_axes_(evaluator.figures.isMeasured(FigureGroup::kAlignment)),
      has_space_(evaluator.figures.isMeasured(FigureGroup::kSpace)),
      has_projection_(evaluator.figures.isMeasured(FigureGroup::kProjection) &&
                      evaluator.seen.fitted_left.size() == static_cast<std::size_t>(positions.cols())) {
  const RigidMotion motion = FitRigidOntoBoard(columnsOf(truth), columnsOf(positions));
  const Eigen::Matrix3Xd placed = (motion.R * truth).colwise() + motion.t;
  residual_ = placed - positions;
  fitted_ = placed.colwise() - placed.rowwise().mean();
  const Eigen::Matrix3d spread = fitted_.lazyProduct(fitted_.transpose());
  to_turn_ = (spread.trace() * Eigen::Matrix3d::Identity() - spread).inverse();

  const PairFigures& seen = evaluator.figures;
  if (has_axes_) {
    figures.push_back({"icp_x_rms", seen.icp_x_rms, 0.0, {}});
    figures.push_back({"icp_y_rms", seen.icp_y_rms, 0.0, {}});
    figures.push_back({"icp_z_rms", seen.icp_z_rms, 0.0, {}});
    figures.push_back({"icp_nor_rms", seen.icp_nor_rms, 0.0, {}});
  }
  if (has_space_) figures.push_back({"space_rms", seen.space_rms, 0.0, {}});
  if (has_projection_) prepareProjection(evaluator, raw, placed);
}

void FitRepeater::prepareProjection(const PairEvaluator& evaluator, const DotScene& raw,
                                    const Eigen::Matrix3Xd& placed) {
  figures.push_back({"gt_rms", evaluator.figures.gt_rms, 0.0, {}});
  Eigen::Matrix2Xd off(2, placed.cols());
  for (Eigen::Index dot = 0; dot < off.cols(); ++dot) {
    const auto place = static_cast<std::size_t>(dot);
    const cv::Point2f way = evaluator.seen.fitted_left[place] - evaluator.seen.raw[place].left;
    off.col(dot) << way.x, way.y;
    is_projected_.push_back(off.col(dot).norm() <= projectionLimit(evaluator.config()));
    pixel_slope_.push_back(pixelSlope(evaluator.seen.cameras.left_K, placed.col(dot)));
  }
  seen_off_ = withoutNoise(off, raw.trend, raw.covariance().topLeftCorner<2, 2>().trace());
}

void FitRepeater::add(const Repetition& repetition) {
  const Eigen::Matrix3Xd& shifts = repetition.positions;
  const auto count = static_cast<double>(shifts.cols());
  Eigen::Vector3d moment = Eigen::Vector3d::Zero();
  for (Eigen::Index dot = 0; dot < shifts.cols(); ++dot) {
    moment += Eigen::Vector3d(fitted_.col(dot)).cross(Eigen::Vector3d(shifts.col(dot)));
  }
  const Eigen::Vector3d turn = to_turn_ * moment;
  const Eigen::Vector3d shift = shifts.rowwise().mean();
  moved_.resize(3, shifts.cols());
  for (Eigen::Index dot = 0; dot < shifts.cols(); ++dot) {
    moved_.col(dot) = turn.cross(Eigen::Vector3d(fitted_.col(dot))) + shift;
  }
  const Eigen::Vector3d squares = (residual_ + moved_ - shifts).rowwise().squaredNorm() / count;
  const double whole = std::sqrt(squares.sum());
  std::size_t next = 0;
  if (has_axes_) {
    for (int axis = 0; axis < 3; ++axis) figures[next++].values.push_back(std::sqrt(squares[axis]));
    figures[next++].values.push_back(whole);
  }
  if (has_space_) figures[next].values.push_back(whole);
  if (has_projection_) addProjection(repetition);
}

void FitRepeater::addProjection(const Repetition& repetition) {
  double squares = 0.0;
  double kept = 0.0;
  for (Eigen::Index dot = 0; dot < moved_.cols(); ++dot) {
    const auto place = static_cast<std::size_t>(dot);
    if (!is_projected_[place]) continue;
    squares += (seen_off_.col(dot) + pixel_slope_[place] * moved_.col(dot) - repetition.pixels.col(dot).head<2>())
                   .squaredNorm();
    kept += 1.0;
  }
  figures.back().values.push_back(std::sqrt(squares / kept));
}
