#include "board/print/CairoSheet.h"

#include <numbers>
#include <stdexcept>
#include <string>

namespace boards {
namespace {

struct DestroyContext {
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};

void paintDisc(cairo_t* cairo, const Disc& disc, bool opaque) {
  cairo_arc(cairo, disc.x, disc.y, disc.radius, 0.0, 2.0 * std::numbers::pi);
  if (!disc.ink) {
    opaque ? cairo_set_source_rgb(cairo, 1.0, 1.0, 1.0) : cairo_set_operator(cairo, CAIRO_OPERATOR_CLEAR);
  }
  cairo_fill(cairo);
  cairo_set_source_rgb(cairo, 0.0, 0.0, 0.0);
  cairo_set_operator(cairo, CAIRO_OPERATOR_OVER);
}

void paintCaption(cairo_t* cairo, const Caption& caption) {
  cairo_set_font_size(cairo, caption.size);
  cairo_text_extents_t extents{};
  cairo_text_extents(cairo, caption.text.c_str(), &extents);
  cairo_move_to(cairo, caption.x - extents.x_advance / 2.0, caption.y);
  cairo_show_text(cairo, caption.text.c_str());
}

}  // namespace

void requireDrawn(cairo_status_t status) {
  if (status == CAIRO_STATUS_SUCCESS) return;
  throw std::runtime_error(std::string("the board can't be drawn: ") + cairo_status_to_string(status));
}

void paint(const Sheet& sheet, cairo_surface_t* surface, double units, bool opaque) {
  const std::unique_ptr<cairo_t, DestroyContext> context(cairo_create(surface));
  cairo_t* const cairo = context.get();
  cairo_scale(cairo, units, units);
  cairo_set_tolerance(cairo, 0.01);
  cairo_set_source_rgb(cairo, 0.0, 0.0, 0.0);
  for (const Disc& disc : sheet.discs) paintDisc(cairo, disc, opaque);
  for (const Bar& bar : sheet.bars) {
    cairo_rectangle(cairo, bar.x, bar.y, bar.width, bar.height);
    cairo_fill(cairo);
  }
  cairo_select_font_face(cairo, "Helvetica", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  for (const Caption& caption : sheet.captions) paintCaption(cairo, caption);
  requireDrawn(cairo_status(cairo));
}

}  // namespace boards
