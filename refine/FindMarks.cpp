#include "refine/FindMarks.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/Median.h"
#include "refine/board/SpreadChoice.h"
#include "refine/outline/Directions.h"
#include "refine/outline/GradientLines.h"
#include "refine/outline/RadialEdges.h"

namespace refine {
namespace {

using polarline::DotState;

constexpr std::size_t kSampledDots = 16;
constexpr std::size_t kAhead = 4;  ///< Dots whose pixels are on their way.
/// Of the spacing: the largest marker's outline lies within, the middles of its neighbours do not.
constexpr double kReach = 1.05;
constexpr double kSmallestFound = 1.2;  ///< Radius, pixels.
constexpr double kBand = 2.5;           ///< Pixels on either side of an outline.
constexpr double kOtherSize = 0.04;     ///< Of the radius.
constexpr std::size_t kFewestPlain = 10;
constexpr double kFaint = 0.35;  ///< Of the median strength of the marks' edges: no mark below,
constexpr double kPlain = 0.7;   ///< a plain dot not below.

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

/// Without the blur.
MarkLook lookOf(const std::vector<DotWork>& dots, const std::vector<std::size_t>& sample,
                const std::vector<RadialEdges>& all) {
  MarkLook look;
  double votes = 0.0;
  std::vector<double> strengths, radii;
  for (const RadialEdges& found : all) {
    if (found.count == 0) continue;
    votes += found.edges[found.count - 1].rise > 0.0 ? 1.0 : -1.0;
    strengths.push_back(strengthOf(found));
  }
  if (votes < 0.0) look.sign = -1.0;
  if (!strengths.empty()) look.strength = rank::upperMedian(strengths);
  for (std::size_t k = 0; k < all.size(); ++k) {
    if (dots[sample[k]].slope_known && all[k].count == 1 && all[k].edges[0].rise * look.sign > 0.0)
      radii.push_back(all[k].edges[0].radius);
  }
  if (radii.size() > kFewestPlain) look.radius = rank::upperMedian(radii);
  return look;
}

/// Whether there is a plain dot: ink and paper just inside and outside of its outline, and paper farther out.
bool looksPlain(const GreyPicture& picture, const MarkLook& look, const DotWork& dot) {
  constexpr std::size_t kDirections = 8;
  static const auto kAround = directionsAround<kDirections>(0.5);
  if (!(look.radius > 0.0) || !dot.slope_known) return false;
  const double scale = std::sqrt(std::abs(cv::determinant(dot.J)));
  const double off = std::min(1.2 / scale, 0.3 * look.radius);
  const Outline far = outlineOfCircle(dot.place->pixel, dot.J, look.radius + 2.0 * off);
  if (leavesPicture(far, picture.grey.size())) return false;
  double inside = 0.0, outside = 0.0, farther = 0.0;
  for (const cv::Vec2d& direction : kAround) {
    const cv::Vec2d out = dot.J * direction;
    const auto greyOut = [&](double radius) {
      return picture.between(dot.place->pixel.x + radius * out[0], dot.place->pixel.y + radius * out[1]);
    };
    inside += greyOut(look.radius - off);
    outside += greyOut(look.radius + off);
    farther += greyOut(look.radius + 2.0 * off);
  }
  const double wanted = kPlain * look.strength * kDirections;
  return look.sign * (outside - inside) > wanted && look.sign * (farther - inside) > wanted;
}

/// What will be read of the picture.
void fetchPlain(const GreyPicture& picture, const MarkLook& look, const DotWork& dot) {
  if (!(look.radius > 0.0) || !dot.slope_known) return;
  const Outline outline = outlineOfCircle(dot.place->pixel, dot.J, look.radius);
  picture.fetch(outline.centre, outline.halfBox() + cv::Point2d(3.0, 3.0));
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

/// As a plain dot would be.
void assumePlain(const MarkLook& look, DotWork& dot) {
  dot.edges = 1;
  dot.radii[0] = look.radius;
  dot.outline = outlineOfCircle(dot.place->pixel, dot.J, look.radius);
  dot.blur = look.blur;
  dot.state = DotState::kUnclear;
  dot.assumed = true;
}

/// From what is seen.
void findMark(const GreyPicture& picture, const MarkLook& look, const RadialEdges& found, DotWork& dot) {
  dot.state = DotState::kCovered;
  dot.assumed = false;
  dot.edges = 0;
  dot.outline.reset();
  dot.fit.reset();
  if (strengthOf(found) >= kFaint * look.strength) takeEdges(dot, found, look.sign);
  if (dot.edges > 0) findOutline(picture, look.sign, dot);
}

/// Radius and blur of plain dots by the outlines of some of them.
void measurePlain(const GreyPicture& picture, const std::vector<std::size_t>& sample, std::vector<DotWork>& dots,
                  MarkLook& look) {
  std::vector<double> radii, blurs;
  for (const std::size_t k : sample) {
    DotWork& dot = dots[k];
    if (!looksPlain(picture, look, dot)) continue;
    assumePlain(look, dot);
    dot.outline.reset();
    findOutline(picture, look.sign, dot);
    if (!dot.outline) continue;
    radii.push_back(dot.boardRadius());
    blurs.push_back(dot.blur);
  }
  if (radii.empty()) {
    look.radius = 0.0;
    return;
  }
  look.radius = rank::upperMedian(radii);
  look.blur = rank::upperMedian(blurs);
}

bool isUnlike(const DotWork& dot, const MarkLook& look) {
  return !dot.refined() || std::abs(dot.boardRadius() / look.radius - 1.0) > kOtherSize;
}

}  // namespace

double spacingOf(const std::vector<DotWork>& dots) {
  std::vector<double> nearest;
  for (const std::size_t k : spreadChoice(dots.size(), kSampledDots)) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t other = 0; other < dots.size(); ++other) {
      if (other != k && dots[other].slope_known == dots[k].slope_known)
        least = std::min(least, distanceOf(dots[k], dots[other]));
    }
    if (std::isfinite(least)) nearest.push_back(least);
  }
  return nearest.empty() ? 50.0 : rank::upperMedian(nearest);
}

MarkLook findMarks(const GreyPicture& picture, std::vector<DotWork>& dots) {
  const double reach = kReach * spacingOf(dots);
  const std::vector<std::size_t> sample = spreadChoice(dots.size(), kSampledDots);
  std::vector<RadialEdges> all;
  all.reserve(sample.size());
  for (const std::size_t k : sample) all.push_back(radialEdges(picture, dots[k].place->pixel, dots[k].J, reach));
  MarkLook look = lookOf(dots, sample, all);
  look.reach = reach;
  measurePlain(picture, sample, dots, look);
  for (std::size_t k = 0; k < dots.size(); ++k) {
    DotWork& dot = dots[k];
    if (k + kAhead < dots.size()) fetchPlain(picture, look, dots[k + kAhead]);
    if (looksPlain(picture, look, dot)) {
      assumePlain(look, dot);
    } else {
      findMark(picture, look, radialEdges(picture, dot.place->pixel, dot.J, reach), dot);
    }
  }
  return look;
}

std::vector<std::size_t> findUnlikeMarks(const GreyPicture& picture, const MarkLook& look, std::vector<DotWork>& dots) {
  std::vector<std::size_t> again;
  for (std::size_t k = 0; k < dots.size(); ++k) {
    DotWork& dot = dots[k];
    if (!dot.assumed || !isUnlike(dot, look)) continue;
    findMark(picture, look, radialEdges(picture, dot.place->pixel, dot.J, look.reach), dot);
    again.push_back(k);
  }
  return again;
}

}  // namespace refine
