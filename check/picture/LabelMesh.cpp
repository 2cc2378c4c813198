#include "check/picture/LabelMesh.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "platform/Median.h"

namespace {

using polarline::Dot;

constexpr std::array<int, 7> kMeshes = {1, 2, 5, 10, 20, 50, 100};
/// More ids hide the picture, whatever its size.
constexpr std::size_t kMostIds = 1000;

/// Median distance of two dots that follow one another in a row; 0 without any.
double pitchOf(const polarline::Detection& detection) {
  std::vector<double> distances;
  for (std::size_t i = 1; i < detection.dots.size(); ++i) {
    const Dot& before = detection.dots[i - 1];
    const Dot& dot = detection.dots[i];
    if (dot.id == before.id + 1 && dot.row == before.row)
      distances.push_back(std::hypot(dot.x - before.x, dot.y - before.y));
  }
  return distances.empty() ? 0.0 : rank::upperMedian(distances);
}

int meshFor(std::size_t dots, double pitch, double wanted) {
  for (const int mesh : kMeshes) {
    const auto each = static_cast<std::size_t>(mesh) * static_cast<std::size_t>(mesh);
    if (mesh * pitch >= wanted && dots / each <= kMostIds) return mesh;
  }
  return kMeshes.back();
}

bool isCorner(const polarline::DetectedBoard& board, const Dot& dot) {
  return (dot.row == 0 || dot.row == board.rows - 1) && (dot.column == 0 || dot.column == board.columns - 1);
}

}  // namespace

std::vector<const Dot*> labelledDots(const polarline::Detection& detection, const cv::Size2d& id_size) {
  const int mesh = meshFor(detection.dots.size(), pitchOf(detection), std::max(id_size.width, id_size.height));
  std::vector<const Dot*> corners;
  std::vector<const Dot*> others;
  for (const Dot& dot : detection.dots) {
    if (isCorner(detection.board, dot)) {
      corners.push_back(&dot);
    } else if (dot.row % mesh == 0 && dot.column % mesh == 0) {
      others.push_back(&dot);
    }
  }
  corners.insert(corners.end(), others.begin(), others.end());
  return corners;
}
