#include "refine/edge/EdgePixels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <span>
#include <type_traits>

#include "refine/edge/EdgeZones.h"

namespace refine {
namespace {

/// Beyond the edge's reach, so that there is flat paper and ink to compare with.
constexpr double kFlatPixels = 0.6;
constexpr int kFlatOf = 4;
/// Pixels on the edge of a large mark, of which every third row is taken, and of a still larger one every fourth.
constexpr double kLargeEdge = 180.0, kLargerEdge = 195.0;
/// A neighbour's edge changes the grey by less than a thousandth beyond this, in standard deviations.
constexpr double kClear = 3.0;

/// The first row of a mark that belongs to every so many-th of the picture.
int firstTaken(const EdgeZones& zones, int rows) {
  const int first = zones.firstRow();
  return first + (rows - first % rows) % rows;
}

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

/// The first column from here on that belongs to every n-th pixel, spread evenly; n is a power of two.
int firstOf(int n, int column, int row) { return column + ((-column - n / 2 * row) & (n - 1)); }

/// Pixels of a run that are copied at once: most are no longer.
constexpr int kRunAtOnce = 24, kFlatAtOnce = 2;
/// What may be read beyond a run.
constexpr double kRoom = kRunAtOnce + kFlatOf * kFlatAtOnce;

/// Whether the picture goes on far enough around a box to copy all of its pixels many at once.
bool isAmple(const cv::Size& picture, const cv::Point2d& centre, const cv::Point2d& half) {
  return centre.x - half.x > kRoom && centre.x + half.x < picture.width - kRoom && centre.y - half.y > 2.0 &&
         centre.y + half.y < picture.height - 3.0;
}

/// Copies the pixels of one mark that is clear of neighbours and border into the table. The runs of some rows are found
/// before their pixels are copied: where the next one begins takes longer to tell than to copy what is in it.
template <typename Pixel>
class Copier {
 public:
  Copier(const GreyPicture& picture, bool all_flat, EdgeTable& table)
      : picture_(&picture), all_flat_(all_flat), table_(&table) {}

  /// Of every so many-th row. How many pixels of all rows are right on the edge.
  int copy(const EdgeZones& zones, int rows) {
    constexpr std::size_t kRowsAtOnce = 16;
    std::array<std::array<EdgeRun, EdgeZones::kMostRuns>, kRowsAtOnce> runs;
    int on_edge = 0;
    for (int first = firstTaken(zones, rows), row = first; first <= zones.lastRow(); first = row) {
      std::size_t found = 0, count = 0;
      for (; row <= zones.lastRow() && found < kRowsAtOnce; row += rows) count = zones.runsOf(row, runs[found++]);
      for (std::size_t k = 0; k < found; ++k)
        on_edge += copyRow(first + static_cast<int>(k) * rows, std::span(runs[k]).first(count));
    }
    return rows * on_edge;
  }

 private:
  int copyRow(int row, std::span<const EdgeRun> runs) {
    const auto* const greys = picture_->grey.ptr<Pixel>(row);
    int on_edge = 0;
    for (const EdgeRun& run : runs) {
      if (run.on_edge || all_flat_) {
        const int length = run.last - run.first + 1;
        table_->template addRun<1, kRunAtOnce>(greys, run.first, row, length);
        on_edge += run.on_edge ? length : 0;
      } else {
        const int first = firstOf(kFlatOf, run.first, row);
        table_->template addRun<kFlatOf, kFlatAtOnce>(greys, first, row, (run.last - first + kFlatOf) / kFlatOf);
      }
    }
    return on_edge;
  }

  const GreyPicture* picture_;
  bool all_flat_;
  EdgeTable* table_;
};

bool hasSaturated(const EdgeTable& table, double end) {
  return table.size() > 0 && (table.grey().minCoeff() <= 0.0F || table.grey().maxCoeff() >= static_cast<float>(end));
}

/// Puts the pixels of one mark into the table, one by one.
template <typename Pixel>
class Collector {
 public:
  Collector(const GreyPicture& picture, const std::vector<Obstacle>& obstacles, EdgeTable& table)
      : picture_(&picture), obstacles_(&obstacles), table_(&table), end_(static_cast<float>(picture.range)) {}

  /// Of every so many-th row, counted from the picture's first, and there of every so many-th flat pixel.
  EdgeCounts collect(const EdgeZones& zones, int rows, int flat) {
    std::array<EdgeRun, EdgeZones::kMostRuns> runs;
    for (int row = firstTaken(zones, rows); row <= zones.lastRow(); row += rows) {
      const std::size_t count = zones.runsOf(row, runs);
      for (std::size_t k = 0; k < count; ++k) addRun(row, runs[k], runs[k].on_edge ? 1 : flat);
    }
    return {rows * counts_.on_edge, rows * counts_.neighboured, rows * counts_.clipped};
  }

 private:
  /// Every n-th pixel of a run.
  void addRun(int row, const EdgeRun& run, int n) {
    const cv::Size size = picture_->grey.size();
    EdgeRun inside = run;
    inside.first = std::max(run.first, 0);
    inside.last = row < 0 || row >= size.height ? inside.first - 1 : std::min(run.last, size.width - 1);
    if (run.on_edge && run.last >= run.first) {
      const int beyond = run.last - run.first - std::max(inside.last - inside.first, -1);
      counts_.on_edge += beyond;
      counts_.clipped += beyond;
    }
    if (inside.last < inside.first) return;
    if (obstacles_->empty()) {
      addPixels(row, inside, n, [](int, int) { return false; });
    } else {
      addPixels(row, inside, n, [&](int column, int at) {
        return std::ranges::any_of(*obstacles_, [&](const Obstacle& each) { return each.blursInto(column, at); });
      });
    }
  }

  template <typename IsHidden>
  void addPixels(int row, const EdgeRun& run, int n, const IsHidden& is_hidden) {
    const auto* const greys = picture_->grey.ptr<Pixel>(row);
    int taken = 0, clipped = 0, hidden = 0;
    for (int column = firstOf(n, run.first, row); column <= run.last; column += n) {
      const auto grey = static_cast<float>(greys[column]);
      ++taken;
      clipped += isClipped(row, column, grey);
      if (is_hidden(column, row)) {
        ++hidden;
      } else {
        table_->add(column, row, grey);
      }
    }
    if (!run.on_edge) return;
    counts_.on_edge += taken;
    counts_.clipped += clipped;
    counts_.neighboured += hidden;
  }

  bool isClipped(int row, int column, float grey) const {
    if constexpr (std::is_same_v<Pixel, float>) return picture_->isClipped(row, column);
    return grey <= 0.0F || grey >= end_;
  }

  const GreyPicture* picture_;
  const std::vector<Obstacle>* obstacles_;
  EdgeTable* table_;
  float end_;
  EdgeCounts counts_;
};

}  // namespace

int takenRows(const Outline& outline, double blur) {
  const double on_edge = 2.0 * std::numbers::pi * outline.radius() * 2.0 * kOnEdge * blur;
  if (on_edge > kLargerEdge) return 4;
  return on_edge > kLargeEdge ? 3 : 1;
}

EdgeCounts collectEdgePixels(const GreyPicture& picture, const EdgeModel& model,
                             const std::vector<Neighbour>& neighbours, PixelChoice choice, EdgeTable& table) {
  const cv::Point2d& centre = model.outline.centre;
  const double reach = kEdgeReach * model.blur + kFlatPixels;
  const cv::Point2d half = model.outline.halfBox() + cv::Point2d(reach, reach);
  const auto obstacles = obstaclesOf(neighbours, centre, half);
  const EdgeZones zones(model, reach, kOnEdge * model.blur);
  const int rows = takenRows(model.outline, model.blur), flat = choice == PixelChoice::kFlatToo ? 1 : kFlatOf;
  const cv::Point origin(static_cast<int>(centre.x), static_cast<int>(centre.y));
  const bool is_clear = obstacles.empty() && isAmple(picture.grey.size(), centre, half);
  table.clear(origin);
  const auto collected = [&]<typename Pixel>(Pixel) {
    if (is_clear && !std::is_same_v<Pixel, float>) {
      const int on_edge = Copier<Pixel>(picture, flat == 1, table).copy(zones, rows);
      if (!hasSaturated(table, picture.range)) return EdgeCounts{on_edge, 0, 0};
      table.clear(origin);  // Saturated ones are counted one by one.
    }
    return Collector<Pixel>(picture, obstacles, table).collect(zones, rows, flat);
  };
  return picture.withPixels(collected);
}

}  // namespace refine
