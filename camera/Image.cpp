#include "camera/Image.h"

Image::Image(double width, double height, double fx, double fy, double cx, double cy, std::uint8_t cells_x,
             std::uint8_t cells_y)
    : x_max((width - cx) / fx),
      y_max((height - cy) / fy),
      columns(cells_x),
      rows(cells_y),
      x_min(-cx / fx),
      y_min(-cy / fy) {
  cell_lists.fill(PerCell(columns * rows));
  cell_w = (x_max - x_min) / static_cast<double>(columns);
  cell_h = (y_max - y_min) / static_cast<double>(rows);
  third_w = cell_w / 3.0;
  third_h = cell_h / 3.0;
}
