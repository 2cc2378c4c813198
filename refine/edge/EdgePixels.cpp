#include "refine/edge/EdgePixels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace refine {
namespace {

/// Beyond the edge's reach, so that there is flat paper and ink to compare with.
constexpr double kFlatPixels = 0.6;
constexpr int kFlatOfFour = 4;
/// Of large marks every second pixel on the edge is left out where more than this would stay, in a chequered pattern.
constexpr double kEnoughOnEdge = 150.0;
/// A neighbour's edge changes the grey by less than a thousandth beyond this, in standard deviations.
constexpr double kClear = 3.0;

/// A neighbour with the box that its edge blurs into.
struct Obstacle {
  const Neighbour* neighbour;
  double reach;
  cv::Point2d half;

  explicit Obstacle(const Neighbour& of)
      : neighbour(&of), reach(kClear * of.blur), half(of.outline.halfBox() + cv::Point2d(reach, reach)) {}

  bool boxHolds(double x, double y, const cv::Point2d& room) const {
    return std::abs(x - neighbour->outline.centre.x) <= half.x + room.x &&
           std::abs(y - neighbour->outline.centre.y) <= half.y + room.y;
  }
  bool blursInto(double x, double y) const {
    return boxHolds(x, y, {}) && edgePlace(neighbour->outline, x, y).outside() < reach;
  }
};

/// Those that come near to a box around a centre.
std::vector<Obstacle> obstaclesOf(const std::vector<Neighbour>& neighbours, const cv::Point2d& centre,
                                  const cv::Point2d& half) {
  std::vector<Obstacle> obstacles;
  for (const Neighbour& neighbour : neighbours) {
    const Obstacle obstacle(neighbour);
    if (obstacle.boxHolds(centre.x, centre.y, half)) obstacles.push_back(obstacle);
  }
  return obstacles;
}

/// Pixels of a row that are looked at together.
constexpr int kTogether = 16;
using RowDistances = std::array<float, kTogether>;

/// How far pixels are from a model's edges. With q = d' S^-1 d and m = S^-1 d, d from the centre, the distance from the
/// edge of the ratio k is (q - k sqrt(q)) / |m|, as `edgePlace` tells it.
class EdgeBand {
 public:
  explicit EdgeBand(const EdgeModel& model)
      : xx_(static_cast<float>(model.outline.xx / model.outline.determinant())),
        xy_(static_cast<float>(model.outline.xy / model.outline.determinant())),
        yy_(static_cast<float>(model.outline.yy / model.outline.determinant())),
        edges_(model.edges) {
    for (std::size_t k = 0; k < edges_; ++k) ratio_[k] = static_cast<float>(model.ratio[k]);
  }

  /// Squared distances from the nearest edge, of pixels from (dx, dy) on; not a number in the very centre.
  void squaredDistances(float dx, float dy, RowDistances& result) const {
    RowDistances q, by_slope;
    for (int i = 0; i < kTogether; ++i) {
      const float x = dx + static_cast<float>(i);
      const float mx = yy_ * x - xy_ * dy, my = xx_ * dy - xy_ * x;
      const auto at = static_cast<std::size_t>(i);
      q[at] = mx * x + my * dy;
      by_slope[at] = 1.0F / (mx * mx + my * my);
      result[at] = std::numeric_limits<float>::infinity();
    }
    for (std::size_t k = 0; k < edges_; ++k) {
      for (std::size_t i = 0; i < q.size(); ++i) {
        const float gap = q[i] - ratio_[k] * std::sqrt(q[i]);
        const float squared = gap * gap * by_slope[i];
        result[i] = result[i] < squared ? result[i] : squared;
      }
    }
  }

 private:
  float xx_, xy_, yy_;  ///< Of S by its determinant.
  std::size_t edges_;
  std::array<float, EdgeModel::kMostEdges> ratio_{};
};

/// Columns of a row.
struct Span {
  int first, last;
};

/// What lies within an outline grown by `reach`.
Span spanOf(const Outline& outline, double reach, double dy) {
  const double grown = 1.0 + reach / outline.leastRadius();
  const double room = outline.determinant() * (grown * grown * outline.yy - dy * dy);
  if (!(room >= 0.0)) return {0, -1};
  const double middle = outline.centre.x + outline.xy * dy / outline.yy, half = std::sqrt(room) / outline.yy;
  return {static_cast<int>(std::ceil(middle - half)), static_cast<int>(std::floor(middle + half))};
}

/// Radius of the circle whose inside is farther than `reach` within the innermost edge.
double hollowOf(const EdgeModel& model, double reach) {
  const double least = *std::min_element(model.ratio.begin(), model.ratio.begin() + static_cast<int>(model.edges));
  return std::max(least * model.outline.leastRadius() - reach, 0.0);
}

/// Every n-th pixel, spread evenly; n is 1, 2 or 4.
bool isOneOf(int n, int column, int row) { return ((column + n / 2 * row) & (n - 1)) == 0; }

/// Every how many-th pixel is taken.
struct Share {
  int on_edge = 1, flat = 1;
};

Share shareOf(const EdgeModel& model, PixelChoice choice) {
  if (choice == PixelChoice::kAll) return {};
  const double on_edge = 2.0 * std::numbers::pi * model.outline.radius() * 2.0 * kOnEdge * model.blur;
  return {on_edge > 2.0 * kEnoughOnEdge ? 2 : 1, kFlatOfFour};
}

/// Puts the pixels of one mark into the table.
class Collector {
 public:
  Collector(const GreyPicture& picture, const EdgeModel& model, const std::vector<Neighbour>& neighbours,
            PixelChoice choice, EdgeTable& table)
      : picture_(&picture),
        table_(&table),
        centre_(model.outline.centre),
        reach_(kEdgeReach * model.blur + kFlatPixels),
        squared_reach_(static_cast<float>(reach_ * reach_)),
        squared_on_edge_(static_cast<float>(std::pow(kOnEdge * model.blur, 2))),
        half_(model.outline.halfBox() + cv::Point2d(reach_, reach_)),
        hollow_(hollowOf(model, reach_)),
        share_(shareOf(model, choice)),
        band_(model),
        obstacles_(obstaclesOf(neighbours, centre_, half_)) {}

  EdgeCounts collect(const Outline& outline) {
    table_->clear({static_cast<int>(centre_.x), static_cast<int>(centre_.y)});
    const int last_row = static_cast<int>(std::floor(centre_.y + half_.y));
    for (int row = static_cast<int>(std::ceil(centre_.y - half_.y)); row <= last_row; ++row) {
      const double dy = row - centre_.y, skipped = std::sqrt(std::max(hollow_ * hollow_ - dy * dy, 0.0));
      const Span span = spanOf(outline, reach_, dy);
      const int before = static_cast<int>(std::floor(centre_.x - skipped));
      addSpan(row, {span.first, std::min(before, span.last)});
      const int after = static_cast<int>(std::ceil(centre_.x + skipped));
      addSpan(row, {std::max(after, before + 1), span.last});
    }
    return counts_;
  }

 private:
  void addSpan(int row, const Span& span) {
    RowDistances squared;
    for (int first = span.first; first <= span.last; first += kTogether) {
      band_.squaredDistances(static_cast<float>(first - centre_.x), static_cast<float>(row - centre_.y), squared);
      const int last = std::min(first + kTogether - 1, span.last);
      for (int column = first; column <= last; ++column) {
        const float here = squared[static_cast<std::size_t>(column - first)];
        if (here <= squared_reach_) addPixel(row, column, here <= squared_on_edge_);
      }
    }
  }

  void addPixel(int row, int column, bool on_edge) {
    const cv::Size size = picture_->grey.size();
    const bool inside = row >= 0 && column >= 0 && row < size.height && column < size.width;
    if (on_edge) {
      ++counts_.on_edge;
      counts_.clipped += !inside || picture_->isClipped(row, column);
    }
    if (!inside || !isOneOf(on_edge ? share_.on_edge : share_.flat, column, row)) return;
    if (std::ranges::any_of(obstacles_, [&](const Obstacle& each) { return each.blursInto(column, row); })) {
      counts_.neighboured += on_edge ? share_.on_edge : 0;
    } else {
      table_->add(column, row, picture_->at(row, column));
    }
  }

  const GreyPicture* picture_;
  EdgeTable* table_;
  cv::Point2d centre_;
  double reach_;
  float squared_reach_, squared_on_edge_;
  cv::Point2d half_;
  double hollow_;
  Share share_;
  EdgeBand band_;
  std::vector<Obstacle> obstacles_;
  EdgeCounts counts_;
};

}  // namespace

EdgeCounts collectEdgePixels(const GreyPicture& picture, const EdgeModel& model,
                             const std::vector<Neighbour>& neighbours, PixelChoice choice, EdgeTable& table) {
  return Collector(picture, model, neighbours, choice, table).collect(model.outline);
}

}  // namespace refine
