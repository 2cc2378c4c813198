#pragma once

#include <string>
#include <vector>

#include "polarline/api.h"

/// Boards of dots: described in words, written as the detector's target configuration, printed in true size.
namespace polarline {

/// Which markers a board carries.
enum class BoardKind {
  kSmallRings,  ///< Four rings and a solid ring of about the dots' size on the inner rectangle.
  kBigRings,    ///< The same on the outer rectangle, more than twice as large as the dots.
  kMixedRings,  ///< Small rings on the inner rectangle, a big solid ring on the outer one.
  kBigDots      ///< Four big dots without a hole.
};

/// How the detector numbers a big dot board (`id_method`).
enum class BoardNumbering {
  kGrowth = 0,  ///< From the markers outward.
  kSearch = 1   ///< Every dot is searched in the grid; wants whole steps of 9 board units or more.
};

/// Radii of a mark in pitches: the ink's outline, a hollow in it (0: none), a core of ink in the hollow (0: none).
struct BoardMarkRadii {
  double outer = 0.0;
  double hollow = 0.0;
  double core = 0.0;
};

/// A place of the grid, counted from 0.
struct BoardPlace {
  int column = 0;
  int row = 0;
};

/// A true position, board frame and board unit: the origin in dot 0, x along the rows, y down the columns, z = 0.
struct BoardPoint {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

/// A planar board: a grid of round dots of which some are markers. Widths and heights of the rectangles count dots,
/// corners included.
struct BoardDescription {
  BoardKind kind = BoardKind::kSmallRings;
  int cols = 0;
  int rows = 0;
  double step = 0.0;    ///< Pitch along a row, board unit; 1e-9 to 1e9.
  double step_y = 0.0;  ///< Pitch of the rows, board unit; 0: `step`. Ring boards have one pitch only.
  int inner_width = 0;
  int inner_height = 0;
  int outter_width = 0;
  int outter_height = 0;
  double dot_radius = 0.3;  ///< In pitches.
  BoardMarkRadii small_ring{0.5, 0.33, 0.0};
  BoardMarkRadii small_solid{0.5, 0.33, 0.16};
  BoardMarkRadii big_ring{0.8, 0.55, 0.0};
  BoardMarkRadii big_solid{0.8, 0.55, 0.28};
  BoardMarkRadii big_dot{0.45, 0.0, 0.0};
  BoardNumbering numbering = BoardNumbering::kGrowth;  ///< Big dot boards only.
  /// Where the big dots stand, in the detector's order; empty: on the inner rectangle. Big dot boards only.
  std::vector<BoardPlace> land_marks;
};

/// Reads KIND:COLSxROWS:STEP[:NAME=VALUE...]. KIND: `rings-small`, `rings-big`, `rings-mixed`, `dots`. Names: `inner`
/// and `outter` (WIDTHxHEIGHT in dots), `step_y`, `dot` (radius in pitches), `numbering` (`growth`, `search`) and
/// `marks` (four places COLUMN,ROW joined by `/`). Rectangles that are left out suit the size. The board has passed
/// `checkBoard`. Throws `InputError` that names the piece, or the reason why the board can't be numbered.
POLARLINE_API BoardDescription parseBoard(const std::string& text);

/// The rings to draw, which a target configuration does not tell.
enum class BoardRings { kSmall, kBig, kMixed };

/// Reads the board of a target configuration (.ini, .json, .yml, .yaml, .xml); `rings` counts for ring boards only. The
/// board has passed `checkBoard`. Throws `InputError`.
POLARLINE_API BoardDescription readBoard(const std::string& path, BoardRings rings = BoardRings::kSmall);

/// Throws `InputError` with the reason if the detector can't number the board, whatever the picture.
POLARLINE_API void checkBoard(const BoardDescription& board);

/// The kinds that a text of a board begins with: "rings-small" and the others.
POLARLINE_API std::vector<std::string> boardKinds();

/// The board in the words of `parseBoard`.
POLARLINE_API std::string boardText(const BoardDescription& board);

/// The target configuration of a board: `key: value` lines, a comment above each. To be saved under a name that ends
/// in "ini".
POLARLINE_API std::string targetIni(const BoardDescription& board);

/// The true position of every place of the grid by id (row * cols + column), also of those where nothing is drawn.
POLARLINE_API std::vector<BoardPoint> boardPoints(const BoardDescription& board);

/// The same as a text list of board points: a line of x, y and z each.
POLARLINE_API std::string boardGroundTruthText(const BoardDescription& board);

/// How many ids the detector can report at most, when the whole board is in a good picture. Small boards with big rings
/// lose some more where the rings cut dots off the rim, and mixed boards may lose some at each small ring.
POLARLINE_API int detectablePoints(const BoardDescription& board);

/// Sheets of paper. The board lies across or upright, as it fits.
enum class Paper { kA4, kA3, kA2, kA1, kFit /**< As large as the board wants it. */ };

/// Forms of a printed board.
enum class BoardFormat { kSvg, kPdf, kPng };

/// The form that a file's name asks for by its ending (.svg, .pdf, .png, of any case); "-" is SVG. Throws `InputError`.
POLARLINE_API BoardFormat boardFormat(const std::string& path);

/// How a board is printed.
struct BoardPrint {
  BoardFormat format = BoardFormat::kSvg;
  Paper paper = Paper::kFit;
  std::string title;   ///< UTF-8, a line; empty: the board in words.
  double dpi = 300.0;  ///< Of a PNG, dots per inch.
};

/// A printed board.
struct PrintedBoard {
  std::string bytes;   ///< The whole file.
  std::string paper;   ///< "A4", ... or "own size".
  double width = 0.0;  ///< Of the sheet, millimetres.
  double height = 0.0;
};

/// Draws the board in true size, a board unit being taken as a millimetre: the dots and markers as the detector wants
/// them, two pitches of white around them, beyond that the ids of the corners, a ruler of 100 units and the title in
/// small print. Throws `InputError` for what `checkBoard` refuses, for a sheet that is too small (with the sizes that
/// were found and wanted), for dots too small to print, a title too long, and for a PNG of too few or too many pixels.
POLARLINE_API PrintedBoard printBoard(const BoardDescription& board, const BoardPrint& print);

/// What was printed, in a sentence: board, sheet, points, and what to look at.
POLARLINE_API std::string boardSummary(const BoardDescription& board, const PrintedBoard& printed);

/// The same as a JSON document: `schema` "polarline-board/1", `board` (`text`, `type`, `rows`, `cols`, `step`,
/// `step_y`, `points`, `detectable_points`) and `sheet` (`paper`, `width_mm`, `height_mm`, `ruler_mm`).
POLARLINE_API std::string boardJson(const BoardDescription& board, const PrintedBoard& printed);

}  // namespace polarline
