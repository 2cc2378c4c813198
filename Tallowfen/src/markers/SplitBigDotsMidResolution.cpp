#include "Tallowfen/src/markers/SplitBigDotsMidResolution.h"

#include <algorithm>
#include <cstddef>
#include <opencv2/core.hpp>
#include <utility>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/ellipses/Centres.h"
#include "Tallowfen/src/markers/OrderQuad.h"

namespace kestrune {
namespace {

// Some of the largest may be no dots at all; so many are tried, 210 subsets.
constexpr std::size_t kLargestTried = 10;
// The quad's two diagonals, in semi-axes of the largest ellipse. Meant: four that are farther apart are never taken for
// big dots in these pictures, whatever rectangle is configured.
constexpr double kLongestDiagonal = 16.0;
constexpr double kLongestOtherDiagonal = 14.0;
// Of a plain dot, by 4 pi area / perimeter^2: rounder than what else the detector accepts. A single-precision figure.
constexpr double kLeastRoundness = 0.8299999833106995;

using Indices = std::vector<std::size_t>;

std::vector<double> sortedDistances(const std::vector<Ellipse>& ellipses, const Indices& subset) {
  std::vector<double> distances;
  for (std::size_t i = 0; i < subset.size(); ++i) {
    for (std::size_t j = i + 1; j < subset.size(); ++j) {
      const Ellipse& a = ellipses[subset[i]];
      const Ellipse& b = ellipses[subset[j]];
      distances.push_back(cv::norm(cv::Point2d(a.x - b.x, a.y - b.y)));
    }
  }
  std::sort(distances.begin(), distances.end());
  return distances;
}

bool isQuad(const std::vector<Ellipse>& ellipses, const Indices& subset) {
  std::vector<cv::Point2f> centres;
  for (const std::size_t index : subset) centres.push_back(centreOf(ellipses[index]));
  std::vector<cv::Point2f> ordered;
  if (!OrderQuad(centres, ordered)) return false;
  const std::vector<double> distances = sortedDistances(ellipses, subset);  // Six; the diagonals come last.
  const double largest = ellipses.front().semi_a;
  return !(distances[5] > kLongestDiagonal * largest) && !(distances[4] > kLongestOtherDiagonal * largest);
}

/// Depth first over the ascending subsets of the largest ellipses; the first that is a quad stays in `subset`.
bool FindBigDotQuad(const std::vector<Ellipse>& ellipses, std::size_t start, Indices& subset) {
  if (subset.size() == kBigDotCount) return isQuad(ellipses, subset);
  for (std::size_t i = start; i < std::min(kLargestTried, ellipses.size()); ++i) {
    subset.push_back(i);
    if (FindBigDotQuad(ellipses, i + 1, subset)) return true;
    subset.pop_back();
  }
  return false;
}

}  // namespace

void SplitBigDotsMidResolution(std::vector<Ellipse>& ellipses) {
  if (ellipses.size() < kBigDotCount) return;
  sortLargestFirst(ellipses);
  Indices subset;
  if (!FindBigDotQuad(ellipses, 0, subset)) return;
  std::vector<Ellipse> kept;
  for (std::size_t i = 0; i < ellipses.size(); ++i) {
    const bool big = std::find(subset.begin(), subset.end(), i) != subset.end();
    if (!big && !(ellipses[i].roundness > kLeastRoundness)) continue;
    kept.push_back(std::move(ellipses[i]));
    kept.back().point_class = big ? morvenkit::kBigDot : morvenkit::kDot;
  }
  ellipses = std::move(kept);
}

}  // namespace kestrune
