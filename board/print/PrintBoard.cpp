#include "board/print/Pdf.h"
#include "board/print/Png.h"
#include "board/print/Svg.h"
#include "board/sheet/DrawSheet.h"
#include "polarline/board.h"

namespace polarline {
namespace {

std::string bytesOf(const boards::Sheet& sheet, const BoardDescription& board, const BoardPrint& print) {
  if (print.format == BoardFormat::kSvg) return boards::svgOf(sheet);
  if (print.format == BoardFormat::kPdf) return boards::pdfOf(sheet);
  return boards::pngOf(sheet, print.dpi, board.dot_radius * board.step);
}

}  // namespace

PrintedBoard printBoard(const BoardDescription& board, const BoardPrint& print) {
  checkBoard(board);
  const boards::Sheet sheet = boards::drawSheet(board, print);
  return {bytesOf(sheet, board, print), sheet.paper, sheet.width, sheet.height};
}

}  // namespace polarline
