#pragma once

#include <array>
#include <cstdint>
#include <vector>

/// The grid of polynomial cells over the image, in normalised coordinates. A grid without cells (`columns` or `rows` 0)
/// has no finite cell size; no cell may be looked up in it.
class Image {
 public:
  using PerCell = std::vector<std::vector<double>>;

  /// All fields zero.
  Image() = default;
  /// `width` and `height` in pixels, `fx`, `fy`, `cx`, `cy` in pixels.
  Image(double width, double height, double fx, double fy, double cx, double cy, std::uint8_t cells_x,
        std::uint8_t cells_y);
  Image(const Image&) = default;
  Image(Image&&) noexcept = default;
  Image& operator=(const Image&) = default;
  Image& operator=(Image&&) noexcept = default;
  virtual ~Image() = default;

  double x_max = 0.0;  ///< Right image border, (width - cx) / fx.
  double y_max = 0.0;  ///< Bottom image border, (height - cy) / fy.
  std::uint64_t columns = 0;
  std::uint64_t rows = 0;
  /// Room for a caller's figures, an empty entry for each cell. Nothing reads it.
  std::array<PerCell, 4> cell_lists;
  double cell_w = 0.0;
  double cell_h = 0.0;
  double third_w = 0.0;  ///< A third of a cell's width. Nothing reads it.
  double third_h = 0.0;  ///< The same of its height.
  double x_min = 0.0;    ///< Left image border, -cx / fx.
  double y_min = 0.0;    ///< Top image border, -cy / fy.
};
