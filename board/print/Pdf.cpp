#include "board/print/Pdf.h"

#include <cairo-pdf.h>

#include "board/print/CairoSheet.h"

namespace boards {
namespace {

constexpr double kPointsPerMillimetre = 72.0 / 25.4;

cairo_status_t append(void* closure, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

std::string pdfOf(const Sheet& sheet) {
  std::string pdf;
  const Surface surface(cairo_pdf_surface_create_for_stream(append, &pdf, sheet.width * kPointsPerMillimetre,
                                                            sheet.height * kPointsPerMillimetre));
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, sheet.title.c_str());
  // None, so that the same board gives the same file.
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");
  paint(sheet, surface.get(), kPointsPerMillimetre, true);
  cairo_surface_finish(surface.get());
  requireDrawn(cairo_surface_status(surface.get()));
  return pdf;
}

}  // namespace boards
