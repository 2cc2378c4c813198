#include "refine/RefineDots.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "camera/PoseFit.h"
#include "platform/Median.h"
#include "refine/DotWork.h"
#include "refine/FindMarks.h"
#include "refine/FitMarks.h"
#include "refine/board/BiasField.h"
#include "refine/board/BoardSlope.h"
#include "refine/board/ContourCentre.h"
#include "refine/board/SpreadChoice.h"

namespace refine {
namespace {

using polarline::DotState;
using polarline::RefinedDot;

/// What a calibration leaves even where the centres are exact, pixels: it keeps the best dots from weighing more than
/// the lens deserves.
constexpr double kLensError = 0.01;
constexpr int kPoseRounds = 2;
/// Dots that do for a pose of which only slopes and biases are wanted.
constexpr std::size_t kPoseDots = 200;
/// A centre that misses the board's image by more than both is not its dot's: something lies across it that looks like
/// an edge. A bent board or a lens that was calibrated badly moves neighbours alike and so the median, too.
constexpr double kFar = 0.1;           ///< Pixels.
constexpr double kFarByMedian = 10.0;  ///< Times the median of all.

std::vector<PosePoint> someOf(const std::vector<PosePoint>& points) {
  std::vector<PosePoint> some;
  for (const std::size_t k : spreadChoice(points.size(), kPoseDots)) some.push_back(points[k]);
  return some;
}

/// Slopes of the picture at the dots, by a pose of the places as they are given; that pose.
std::optional<FittedPose> findSlopes(const CalibratedCamera& camera, std::vector<DotWork>& dots) {
  std::vector<PosePoint> points;
  for (const DotWork& dot : dots) {
    if (dot.place->board) points.push_back({*dot.place->board, dot.place->pixel});
  }
  const std::vector<PosePoint> some = someOf(points);
  const auto first = firstPose(camera, some);
  if (!first) return std::nullopt;
  auto fitted = fitPose(camera, *first, some);
  if (!fitted) return std::nullopt;
  for (DotWork& dot : dots) {
    if (!dot.place->board) continue;
    const double step = 1e-4 * cv::norm(fitted->pose.T);
    const auto slope = slopeOnBoard(camera, fitted->pose, *dot.place->board, step);
    if (!slope || std::abs(cv::determinant(*slope)) < 1e-12) continue;
    dot.J = *slope;
    dot.slope_known = true;
  }
  return fitted;
}

/// The refined centres that the ellipses' centres stand for.
std::vector<PosePoint> refinedPoints(const std::vector<DotWork>& dots) {
  std::vector<PosePoint> points;
  for (const DotWork& dot : dots) {
    if (!dot.refined() || !dot.place->board) continue;
    const cv::Matx22d& cov = dot.fit->covariance;
    const double variance = 0.5 * (cov(0, 0) + cov(1, 1)) + kLensError * kLensError;
    points.push_back({*dot.place->board, dot.fit->model.outline.centre - dot.bias, 1.0 / variance});
  }
  return points;
}

/// The pose of such centres, from the one before on if there is one.
std::optional<FittedPose> poseOf(const CalibratedCamera& camera, const std::vector<PosePoint>& points,
                                 const std::optional<FittedPose>& before) {
  const auto first = before ? before->pose : firstPose(camera, points);
  return first ? fitPose(camera, *first, points) : std::nullopt;
}

/// The field of the biases, for circles of the dots' median size.
BiasField biasField(const CalibratedCamera& camera, const CameraPose& pose, const std::vector<DotWork>& dots) {
  std::vector<cv::Point3d> places;
  std::vector<double> radii;
  for (const DotWork& dot : dots) {
    if (!dot.refined() || !dot.place->board || !dot.slope_known) continue;
    places.push_back(*dot.place->board);
    radii.push_back(dot.boardRadius());
  }
  return {camera, pose, places, radii.empty() ? 1.0 : rank::upperMedian(radii)};
}

/// Biases of the outer edges, and the inner edges' offsets against them, as the pose has them.
void findBiases(const CalibratedCamera& camera, const CameraPose& pose, std::vector<DotWork>& dots) {
  const BiasField field = biasField(camera, pose, dots);
  for (DotWork& dot : dots) {
    if (!dot.refined() || !dot.place->board || !dot.slope_known) continue;
    const cv::Point3d& board = *dot.place->board;
    const auto biasOf = [&](double radius) {
      const auto bias = field.biasOf(board, radius);
      return bias ? bias : contourBias(camera, pose, board, radius);
    };
    const double radius = dot.boardRadius();
    const auto bias = biasOf(radius);
    if (!bias) continue;
    dot.bias = *bias;
    EdgeModel& model = dot.fit->model;
    for (std::size_t k = 1; k < model.edges; ++k) {
      const auto inner = biasOf(radius * model.ratio[k]);
      if (inner) model.offset[k] = *inner - *bias;
    }
  }
}

/// Whether any dot was found covered.
bool coverFarDots(const CalibratedCamera& camera, const CameraPose& pose, std::vector<DotWork>& dots) {
  std::vector<double> misses(dots.size(), 0.0);
  std::vector<double> of_refined;
  for (std::size_t k = 0; k < dots.size(); ++k) {
    if (!dots[k].refined() || !dots[k].place->board) continue;
    const auto image = camera.pixelOf(pose.toCamera(*dots[k].place->board));
    if (!image) continue;
    misses[k] = cv::norm(dots[k].fit->model.outline.centre - dots[k].bias - *image);
    of_refined.push_back(misses[k]);
  }
  if (of_refined.empty()) return false;
  const double far = std::max(kFar, kFarByMedian * rank::upperMedian(of_refined));
  bool any = false;
  for (std::size_t k = 0; k < dots.size(); ++k) {
    if (misses[k] <= far) continue;
    dots[k].state = DotState::kCovered;
    any = true;
  }
  return any;
}

RefinedDot resultOf(const DotWork& dot, double misfit) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  RefinedDot result{dot.place->id, dot.state};
  result.x = result.ellipse_x = dot.place->pixel.x;
  result.y = result.ellipse_y = dot.place->pixel.y;
  result.xx = result.xy = result.yy = result.edge_width = kNone;
  if (!dot.refined()) return result;
  const EdgeModel& model = dot.fit->model;
  result.ellipse_x = model.outline.centre.x;
  result.ellipse_y = model.outline.centre.y;
  result.x = model.outline.centre.x - dot.bias.x;
  result.y = model.outline.centre.y - dot.bias.y;
  result.xx = misfit * dot.fit->covariance(0, 0);
  result.xy = misfit * dot.fit->covariance(0, 1);
  result.yy = misfit * dot.fit->covariance(1, 1);
  result.edge_width = model.blur;
  return result;
}

std::vector<std::size_t> ringsOf(const std::vector<DotWork>& dots) {
  std::vector<std::size_t> rings;
  for (std::size_t k = 0; k < dots.size(); ++k) {
    if (dots[k].edges > 1 && dots[k].refined()) rings.push_back(k);
  }
  return rings;
}

/// `pose`: that of the places as they were given.
std::optional<RefinedPose> correctPerspective(const GreyPicture& picture, const PictureState& known,
                                              const CalibratedCamera& camera, std::optional<FittedPose> pose,
                                              std::vector<DotWork>& dots) {
  for (int round = 0; round < kPoseRounds; ++round) {
    pose = poseOf(camera, someOf(refinedPoints(dots)), pose);
    if (!pose) return std::nullopt;
    findBiases(camera, pose->pose, dots);
    if (round == 0) fitMarks(picture, known, ringsOf(dots), dots);
  }
  pose = poseOf(camera, refinedPoints(dots), pose);
  if (pose && coverFarDots(camera, pose->pose, dots)) pose = poseOf(camera, refinedPoints(dots), pose);
  if (!pose) return std::nullopt;
  return RefinedPose{pose->pose.R, pose->pose.T, pose->rms};
}

}  // namespace
}  // namespace refine

RefinedPicture refineDots(const cv::Mat& picture, const std::vector<DotPlace>& places, const CalibratedCamera& camera) {
  using namespace refine;
  const GreyPicture grey = greyPictureOf(picture);
  std::vector<DotWork> dots(places.size());
  for (std::size_t k = 0; k < places.size(); ++k) dots[k].place = &places[k];
  const std::optional<FittedPose> seen = findSlopes(camera, dots);
  const MarkLook look = findMarks(grey, dots);
  const PictureState known = learnPicture(grey, dots);
  std::vector<std::size_t> all(dots.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  fitMarks(grey, known, all, dots);
  fitMarks(grey, known, findUnlikeMarks(grey, look, dots), dots);
  const double misfit = misfitOf(dots);
  RefinedPicture result;
  result.pose = correctPerspective(grey, known, camera, seen, dots);
  result.dots.reserve(dots.size());
  for (const DotWork& dot : dots) result.dots.push_back(resultOf(dot, misfit));
  return result;
}
