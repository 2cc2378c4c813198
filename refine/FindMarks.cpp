#include "refine/FindMarks.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "platform/Median.h"
#include "refine/outline/GradientLines.h"
#include "refine/outline/RadialEdges.h"

namespace refine {
namespace {

using polarline::DotState;

constexpr std::size_t kSampledDots = 50;
/// Of the spacing: the largest marker's outline lies within, the middles of its neighbours do not.
constexpr double kReach = 1.05;
constexpr double kSmallestFound = 1.2;  ///< Radius, pixels.
constexpr double kBand = 2.5;           ///< Pixels on either side of an outline.
constexpr double kPlain = 0.7;          ///< The same, of a plain dot's.
constexpr double kOtherSize = 0.04;     ///< Of the radius.
constexpr std::size_t kFewestPlain = 20;
constexpr double kFaint = 0.35;  ///< Of the median strength of the marks' edges.

double distanceOf(const DotWork& one, const DotWork& other) {
  if (one.slope_known && other.slope_known) return cv::norm(*one.place->board - *other.place->board);
  return cv::norm(one.place->pixel - other.place->pixel);
}

/// Circles of one mark: of alternating sign, the outermost as the paper has it.
void takeEdges(DotWork& dot, const RadialEdges& found, double sign) {
  const double scale = std::sqrt(std::abs(cv::determinant(dot.J)));
  std::array<double, RadialEdges::kMost> radii{};
  std::size_t count = 0, outermost = 0;
  double last_sign = 0.0;
  for (std::size_t k = 0; k < found.count; ++k) {
    const RadialEdge& edge = found.edges[k];
    if (edge.radius * scale < kSmallestFound) continue;
    const double edge_sign = edge.rise * sign > 0.0 ? 1.0 : -1.0;
    if (edge_sign == last_sign) break;
    last_sign = edge_sign;
    radii[count++] = edge.radius;
    if (edge_sign > 0.0) outermost = count;
  }
  dot.edges = std::min(outermost, EdgeModel::kMostEdges);
  for (std::size_t k = 0; k < dot.edges; ++k) dot.radii[k] = radii[outermost - 1 - k];
}

double strengthOf(const RadialEdges& found) {
  double strength = 0.0;
  for (std::size_t k = 0; k < found.count; ++k) strength = std::max(strength, std::abs(found.edges[k].rise));
  return strength;
}

bool leavesPicture(const Outline& outline, const cv::Size& size) {
  const cv::Point2d half = outline.halfBox();
  return outline.centre.x - half.x < 1.0 || outline.centre.y - half.y < 1.0 ||
         outline.centre.x + half.x > size.width - 2.0 || outline.centre.y + half.y > size.height - 2.0;
}

/// What the most marks of a picture look like.
struct Common {
  double sign = 1.0;      ///< 1 where paper is brighter than ink, -1 where it is darker.
  double strength = 0.0;  ///< Median strength of the marks' edges.
  double radius = 0.0;    ///< Of the plain dots, units of J; 0 where there are too few to tell.
};

Common commonOf(const std::vector<DotWork>& dots, const std::vector<std::size_t>& sample,
                const std::vector<RadialEdges>& all) {
  Common common;
  double votes = 0.0;
  std::vector<double> strengths, radii;
  for (const RadialEdges& found : all) {
    if (found.count == 0) continue;
    votes += found.edges[found.count - 1].rise > 0.0 ? 1.0 : -1.0;
    strengths.push_back(strengthOf(found));
  }
  if (votes < 0.0) common.sign = -1.0;
  if (!strengths.empty()) common.strength = rank::upperMedian(strengths);
  for (std::size_t k = 0; k < all.size(); ++k) {
    if (dots[sample[k]].slope_known && all[k].count == 1 && all[k].edges[0].rise * common.sign > 0.0)
      radii.push_back(all[k].edges[0].radius);
  }
  if (radii.size() > kFewestPlain) common.radius = rank::upperMedian(radii);
  return common;
}

/// Whether there is a plain dot: ink and paper just inside and outside of its outline, and paper farther out.
bool looksPlain(const GreyPicture& picture, const Common& common, const DotWork& dot) {
  constexpr int kDirections = 8;
  if (!(common.radius > 0.0) || !dot.slope_known) return false;
  const double scale = std::sqrt(std::abs(cv::determinant(dot.J)));
  const double off = std::min(1.2 / scale, 0.3 * common.radius);
  const Outline far = outlineOfCircle(dot.place->pixel, dot.J, common.radius + 2.0 * off);
  if (leavesPicture(far, picture.grey.size())) return false;
  double inside = 0.0, outside = 0.0, farther = 0.0;
  for (int k = 0; k < kDirections; ++k) {
    const double angle = 2.0 * std::numbers::pi * (k + 0.5) / kDirections;
    const cv::Vec2d out = dot.J * cv::Vec2d(std::cos(angle), std::sin(angle));
    const auto greyOut = [&](double radius) {
      return greyAt(picture.grey, dot.place->pixel.x + radius * out[0], dot.place->pixel.y + radius * out[1]);
    };
    inside += greyOut(common.radius - off);
    outside += greyOut(common.radius + off);
    farther += greyOut(common.radius + 2.0 * off);
  }
  const double wanted = kPlain * common.strength * kDirections;
  return common.sign * (outside - inside) > wanted && common.sign * (farther - inside) > wanted;
}

void findOutline(const GreyPicture& picture, double sign, DotWork& dot) {
  const double scale = std::sqrt(std::abs(cv::determinant(dot.J)));
  const double inner = dot.edges > 1 ? 0.5 * (dot.radii[0] - dot.radii[1]) : 0.6 * dot.radii[0];
  const Outline expected = outlineOfCircle(dot.place->pixel, dot.J, dot.radii[0]);
  dot.state = leavesPicture(expected, picture.grey.size()) ? DotState::kClipped : DotState::kUnclear;
  const auto found = outlineOfGradients(picture, expected, {std::min(kBand, inner * scale), kBand, sign});
  if (!found) return;
  dot.outline = found->outline;
  dot.blur = found->blur;
}

/// As a plain dot; without an outline where its size is another one, as that of a solid ring's core.
void takePlain(const GreyPicture& picture, const Common& common, DotWork& dot) {
  dot.edges = 1;
  dot.radii[0] = common.radius;
  findOutline(picture, common.sign, dot);
  if (dot.outline && std::abs(dot.boardRadius() / common.radius - 1.0) > kOtherSize) dot.outline.reset();
}

}  // namespace

double spacingOf(const std::vector<DotWork>& dots) {
  std::vector<double> nearest;
  const std::size_t step = std::max<std::size_t>(dots.size() / kSampledDots, 1);
  for (std::size_t k = 0; k < dots.size(); k += step) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t other = 0; other < dots.size(); ++other) {
      if (other != k && dots[other].slope_known == dots[k].slope_known)
        least = std::min(least, distanceOf(dots[k], dots[other]));
    }
    if (std::isfinite(least)) nearest.push_back(least);
  }
  return nearest.empty() ? 50.0 : rank::upperMedian(nearest);
}

void findMarks(const GreyPicture& picture, std::vector<DotWork>& dots) {
  const double reach = kReach * spacingOf(dots);
  const auto edgesOf = [&](const DotWork& dot) { return radialEdges(picture, dot.place->pixel, dot.J, reach); };
  std::vector<std::size_t> sample;
  std::vector<RadialEdges> all;
  const std::size_t step = std::max<std::size_t>(dots.size() / kSampledDots, 1);
  for (std::size_t k = 0; k < dots.size(); k += step) {
    sample.push_back(k);
    all.push_back(edgesOf(dots[k]));
  }
  const Common common = commonOf(dots, sample, all);
  for (DotWork& dot : dots) {
    dot.state = DotState::kCovered;
    if (looksPlain(picture, common, dot)) {
      takePlain(picture, common, dot);
      if (dot.outline) continue;
    }
    const RadialEdges found = edgesOf(dot);
    if (strengthOf(found) >= kFaint * common.strength) takeEdges(dot, found, common.sign);
    if (dot.edges > 0) findOutline(picture, common.sign, dot);
  }
}

}  // namespace refine
