#include "MorvenKit/src/binarise/Equalise.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <opencv2/core/hal/intrin.hpp>
#include <vector>

namespace kestrune::morvenkit {

namespace {

constexpr int kGreys = 256;
// Pixels that are mapped at once, in two registers of four.
constexpr int kAtOnce = 8;

using Histogram = std::array<int, kGreys>;
/// The grey that each grey becomes in the middle of a tile.
using GreyMap = std::array<uchar, kGreys>;

/// Tiles that are all of one size: where the picture is no multiple of them it goes on, mirrored, to the right and
/// below. Meant: both sides go on when one has to.
cv::Size tileSize(const cv::Size& picture, const cv::Size& grid) {
  if (picture.width % grid.width == 0 && picture.height % grid.height == 0)
    return {picture.width / grid.width, picture.height / grid.height};
  return {picture.width / grid.width + 1, picture.height / grid.height + 1};
}

int mirrored(int place, int size) { return place < size ? place : 2 * (size - 1) - place; }

Histogram histogramOf(const cv::Mat& image, const cv::Rect& tile) {
  // Four in turn: on an even ground, the count of one pixel would wait for that of the one before.
  std::array<Histogram, 4> counts{};
  const int inside = std::min(tile.width, image.cols - tile.x);
  for (int y = tile.y; y < tile.y + tile.height; ++y) {
    const auto* row = image.ptr<uchar>(mirrored(y, image.rows));
    const uchar* pixels = row + tile.x;
    int x = 0;
    for (; x + 4 <= inside; x += 4) {
      ++counts[0][pixels[x]];
      ++counts[1][pixels[x + 1]];
      ++counts[2][pixels[x + 2]];
      ++counts[3][pixels[x + 3]];
    }
    for (; x < tile.width; ++x) ++counts[0][row[mirrored(tile.x + x, image.cols)]];
  }
  for (std::size_t grey = 0; grey < kGreys; ++grey)
    counts[0][grey] += counts[1][grey] + counts[2][grey] + counts[3][grey];
  return counts[0];
}

/// Cuts off what a grey counts above its even share of the tile, the lowest limit there is: an even ground must not be
/// stretched into noise. What was cut off is dealt out to all greys, the rest of it to every so many.
void limitContrast(Histogram& counts, int pixels) {
  const int limit = std::max(pixels / kGreys, 1);
  int above = 0;
  for (int& count : counts) {
    above += std::max(count - limit, 0);
    count = std::min(count, limit);
  }
  for (int& count : counts) count += above / kGreys;
  const int rest = above % kGreys;
  if (rest == 0) return;
  const auto stride = static_cast<std::ptrdiff_t>(kGreys / rest);
  int* count = counts.data();
  for (int k = 0; k < rest; ++k, count += stride) ++*count;
}

GreyMap mapOf(const Histogram& counts, int pixels) {
  const float scale = static_cast<float>(kGreys - 1) / static_cast<float>(pixels);
  GreyMap map;
  int below = 0;
  for (std::size_t grey = 0; grey < kGreys; ++grey) {
    below += counts[grey];
    map[grey] = cv::saturate_cast<uchar>(static_cast<float>(below) * scale);
  }
  return map;
}

/// Row by row.
std::vector<GreyMap> mapsOfTiles(const cv::Mat& image, const cv::Size& grid, const cv::Size& tile) {
  std::vector<GreyMap> maps;
  maps.reserve(static_cast<std::size_t>(grid.area()));
  for (int j = 0; j < grid.height; ++j) {
    for (int i = 0; i < grid.width; ++i) {
      Histogram counts = histogramOf(image, {{i * tile.width, j * tile.height}, tile});
      limitContrast(counts, tile.area());
      maps.push_back(mapOf(counts, tile.area()));
    }
  }
  return maps;
}

/// Where the rows or columns of the picture lie between the middles of the tiles.
struct Places {
  std::vector<int> before;           ///< The tile whose middle comes before, -1 for none.
  std::vector<float> behind, ahead;  ///< How far back that is, and how far ahead the next one, in tiles.

  Places(int size, int tile) {
    const float per_tile = 1.0F / static_cast<float>(tile);
    for (int k = 0; k < size; ++k) {
      const float place = static_cast<float>(k) * per_tile - 0.5F;
      before.push_back(cvFloor(place));
      behind.push_back(place - static_cast<float>(before.back()));
      ahead.push_back(1.0F - behind.back());
    }
  }
  /// The end of a run of places between the same middles.
  int endOfRun(int begin) const {
    const auto from = before.begin() + begin;
    return begin + static_cast<int>(std::upper_bound(from, before.end(), *from) - from);
  }
};

/// The grey that each grey becomes in the middles of four tiles around: above before, above behind, below before, below
/// behind. Side by side, so that one load fetches them.
using FourMaps = std::array<std::array<float, 4>, kGreys>;

void interleave(const std::array<const GreyMap*, 4>& maps, FourMaps& four) {
  for (std::size_t grey = 0; grey < kGreys; ++grey) {
    for (std::size_t k = 0; k < 4; ++k) four[grey][k] = static_cast<float>((*maps[k])[grey]);
  }
}

/// Maps the pixels of one row between four middles.
class RowBetween {
 public:
  RowBetween(const FourMaps& maps, const Places& columns, float behind, float ahead)
      : maps_(maps), columns_(columns), behind_(behind), ahead_(ahead) {}

  void map(uchar* row, int begin, int end) const {
    int x = begin;
    for (; x + kAtOnce <= end; x += kAtOnce)
      cv::v_pack_u_store(row + x, cv::v_pack(fourAt(row, x), fourAt(row, x + kAtOnce / 2)));
    for (; x < end; ++x) row[x] = oneAt(row, x);
  }

 private:
  const float* mapped(uchar grey) const { return maps_[grey].data(); }

  cv::v_int32x4 fourAt(const uchar* row, int x) const {
    cv::v_float32x4 above_before, above_behind, below_before, below_behind;
    cv::v_transpose4x4(cv::v_load(mapped(row[x])), cv::v_load(mapped(row[x + 1])), cv::v_load(mapped(row[x + 2])),
                       cv::v_load(mapped(row[x + 3])), above_before, above_behind, below_before, below_behind);
    const cv::v_float32x4 behind = cv::v_load(&columns_.behind[static_cast<std::size_t>(x)]);
    const cv::v_float32x4 ahead = cv::v_load(&columns_.ahead[static_cast<std::size_t>(x)]);
    return cv::v_round((above_before * ahead + above_behind * behind) * cv::v_setall_f32(ahead_) +
                       (below_before * ahead + below_behind * behind) * cv::v_setall_f32(behind_));
  }

  uchar oneAt(const uchar* row, int x) const {
    const float* four = mapped(row[x]);
    const float behind = columns_.behind[static_cast<std::size_t>(x)],
                ahead = columns_.ahead[static_cast<std::size_t>(x)];
    return cv::saturate_cast<uchar>((four[0] * ahead + four[1] * behind) * ahead_ +
                                    (four[2] * ahead + four[3] * behind) * behind_);
  }

  const FourMaps& maps_;
  const Places& columns_;
  float behind_, ahead_;
};

}  // namespace

void equalise(cv::Mat& image, const cv::Size& grid) {
  const cv::Size tile = tileSize(image.size(), grid);
  const std::vector<GreyMap> maps = mapsOfTiles(image, grid, tile);
  const Places rows(image.rows, tile.height), columns(image.cols, tile.width);
  const auto mapAt = [&](int i, int j) {
    const auto row = static_cast<std::size_t>(std::clamp(j, 0, grid.height - 1));
    const auto column = static_cast<std::size_t>(std::clamp(i, 0, grid.width - 1));
    return &maps[row * static_cast<std::size_t>(grid.width) + column];
  };
  FourMaps four;  // Before the first middle and behind the last one, the outermost tile stands for its neighbour.
  for (int top = 0, bottom; top < image.rows; top = bottom) {
    bottom = rows.endOfRun(top);
    const int j = rows.before[static_cast<std::size_t>(top)];
    for (int left = 0, right; left < image.cols; left = right) {
      right = columns.endOfRun(left);
      const int i = columns.before[static_cast<std::size_t>(left)];
      interleave({mapAt(i, j), mapAt(i + 1, j), mapAt(i, j + 1), mapAt(i + 1, j + 1)}, four);
      for (int y = top; y < bottom; ++y) {
        const auto row = static_cast<std::size_t>(y);
        RowBetween(four, columns, rows.behind[row], rows.ahead[row]).map(image.ptr<uchar>(y), left, right);
      }
    }
  }
}

}  // namespace kestrune::morvenkit
