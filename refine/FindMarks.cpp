#include "refine/FindMarks.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "refine/outline/GradientLines.h"
#include "refine/outline/RadialEdges.h"

namespace refine {
namespace {

using polarline::DotState;

constexpr std::size_t kSampled = 100;
/// Of the spacing: the largest marker's outline lies within, the middles of its neighbours do not.
constexpr double kReach = 1.05;
constexpr double kSmallest = 1.2;  ///< Radius, pixels.
constexpr double kBand = 2.5;      ///< Pixels on either side of an outline.
constexpr double kFaint = 0.35;    ///< Of the median strength of the marks' edges.

double distanceOf(const DotWork& one, const DotWork& other) {
  if (one.slope_known && other.slope_known) return cv::norm(*one.place->board - *other.place->board);
  return cv::norm(one.place->pixel - other.place->pixel);
}

double medianOf(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

/// Circles of one mark: of alternating sign, the outermost as the paper has it.
void takeEdges(DotWork& dot, const RadialEdges& found, double sign) {
  const double scale = std::sqrt(std::abs(cv::determinant(dot.J)));
  std::array<double, RadialEdges::kMost> radii{};
  std::size_t count = 0, outermost = 0;
  double last_sign = 0.0;
  for (std::size_t k = 0; k < found.count; ++k) {
    const RadialEdge& edge = found.edges[k];
    if (edge.radius * scale < kSmallest) continue;
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

/// 1 where paper is brighter than ink, -1 where it is darker.
double paperSign(const std::vector<RadialEdges>& all) {
  double votes = 0.0;
  for (const RadialEdges& found : all) {
    if (found.count > 0) votes += found.edges[found.count - 1].rise > 0.0 ? 1.0 : -1.0;
  }
  return votes < 0.0 ? -1.0 : 1.0;
}

double medianStrength(const std::vector<RadialEdges>& all) {
  std::vector<double> strengths;
  for (const RadialEdges& found : all) {
    if (found.count > 0) strengths.push_back(strengthOf(found));
  }
  return strengths.empty() ? 0.0 : medianOf(strengths);
}

bool leavesPicture(const Outline& outline, const cv::Size& size) {
  const cv::Point2d half = outline.halfBox();
  return outline.centre.x - half.x < 1.0 || outline.centre.y - half.y < 1.0 ||
         outline.centre.x + half.x > size.width - 2.0 || outline.centre.y + half.y > size.height - 2.0;
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

}  // namespace

double spacingOf(const std::vector<DotWork>& dots) {
  std::vector<double> nearest;
  const std::size_t step = std::max<std::size_t>(dots.size() / kSampled, 1);
  for (std::size_t k = 0; k < dots.size(); k += step) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t other = 0; other < dots.size(); ++other) {
      if (other != k && dots[other].slope_known == dots[k].slope_known)
        least = std::min(least, distanceOf(dots[k], dots[other]));
    }
    if (std::isfinite(least)) nearest.push_back(least);
  }
  return nearest.empty() ? 50.0 : medianOf(nearest);
}

void findMarks(const GreyPicture& picture, std::vector<DotWork>& dots) {
  const double reach = kReach * spacingOf(dots);
  std::vector<RadialEdges> all;
  all.reserve(dots.size());
  for (const DotWork& dot : dots) all.push_back(radialEdges(picture, dot.place->pixel, dot.J, reach));
  const double sign = paperSign(all);
  const double faint = kFaint * medianStrength(all);
  for (std::size_t k = 0; k < dots.size(); ++k) {
    dots[k].state = DotState::kCovered;
    if (strengthOf(all[k]) >= faint) takeEdges(dots[k], all[k], sign);
    if (dots[k].edges > 0) findOutline(picture, sign, dots[k]);
  }
}

}  // namespace refine
