#pragma once

#include <cairo.h>

#include <memory>

#include "board/sheet/Sheet.h"

namespace boards {

struct DestroySurface {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, DestroySurface>;

/// Paints the sheet on a surface of `units` to the millimetre. Ink is what is painted; paper within ink is cleared, or
/// painted white where `opaque`. Throws `std::runtime_error` if the drawing fails.
void paint(const Sheet& sheet, cairo_surface_t* surface, double units, bool opaque);

/// Throws `std::runtime_error` unless the status is a success.
void requireDrawn(cairo_status_t status);

}  // namespace boards
