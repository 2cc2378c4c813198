#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include "board/describe/DefaultRectangles.h"
#include "board/describe/KindNames.h"
#include "board/marks/DetectorConfig.h"
#include "polarline/board.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

constexpr std::string_view kForm =
    "KIND:COLSxROWS:STEP[:NAME=VALUE...] with KIND rings-small, rings-big, rings-mixed or dots, such as dots:26x16:20";

std::vector<std::string_view> split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (std::size_t end = 0; (end = text.find(separator)) != std::string_view::npos; text.remove_prefix(end + 1)) {
    pieces.push_back(text.substr(0, end));
  }
  pieces.push_back(text);
  return pieces;
}

/// A board in words while it is read: where a failure says what it is about.
class BoardReader {
 public:
  explicit BoardReader(const std::string& text) : text_(text) {}

  BoardDescription read() {
    const std::vector<std::string_view> pieces = split(text_, ':');
    if (pieces.size() < 3) fail(text_, kForm);
    board_.kind = kind(pieces[0]);
    std::tie(board_.cols, board_.rows) = counts(pieces[1], 'x', "COLSxROWS, two whole numbers from 3 to 65535");
    board_.step = number(pieces[2], "a step in board units, above 0");
    for (std::size_t i = 3; i < pieces.size(); ++i) readOption(pieces[i]);
    boards::completeRectangles(board_);
    // The search takes this pitch as it is written, also a 0.
    if (board_.numbering == BoardNumbering::kSearch) board_.step_y = boards::rowStep(board_);
    return board_;
  }

 private:
  [[noreturn]] void fail(std::string_view found, std::string_view wanted) const {
    throw InputError("board '" + text_ + "'", fmt::format("found '{}', wanted {}", found, wanted));
  }

  BoardKind kind(std::string_view name) const {
    const auto* const known = std::ranges::find(boards::kKindNames, name, &boards::KindName::name);
    if (known == boards::kKindNames.end()) fail(name, "one of rings-small, rings-big, rings-mixed, dots");
    return known->kind;
  }

  std::pair<int, int> counts(std::string_view text, char separator, std::string_view wanted) const {
    const std::vector<std::string_view> pieces = split(text, separator);
    if (pieces.size() != 2) fail(text, wanted);
    return {count(pieces[0], text, wanted), count(pieces[1], text, wanted)};
  }

  int count(std::string_view piece, std::string_view whole, std::string_view wanted) const {
    constexpr int kMostDots = 65535;
    int value = -1;
    const auto [end, error] = std::from_chars(piece.data(), piece.data() + piece.size(), value);
    if (error != std::errc() || end != piece.data() + piece.size() || value < 0 || value > kMostDots)
      fail(whole, wanted);
    return value;
  }

  double number(std::string_view piece, std::string_view wanted) const {
    double value = 0.0;
    const auto [end, error] = std::from_chars(piece.data(), piece.data() + piece.size(), value);
    const bool whole = error == std::errc() && end == piece.data() + piece.size();
    if (!whole || !std::isfinite(value) || value <= 0.0) fail(piece, wanted);
    return value;
  }

  void readOption(std::string_view option) {
    const std::size_t equals = option.find('=');
    if (equals == std::string_view::npos) fail(option, "NAME=VALUE");
    const std::string_view name = option.substr(0, equals);
    const std::string_view value = option.substr(equals + 1);
    if (name == "inner") {
      std::tie(board_.inner_width, board_.inner_height) = counts(value, 'x', "inner=WIDTHxHEIGHT in dots");
    } else if (name == "outter") {
      std::tie(board_.outter_width, board_.outter_height) = counts(value, 'x', "outter=WIDTHxHEIGHT in dots");
    } else if (name == "step_y") {
      board_.step_y = number(value, "a step_y in board units, above 0");
    } else if (name == "dot") {
      board_.dot_radius = number(value, "the dots' radius in pitches, above 0");
    } else if (name == "numbering") {
      board_.numbering = numbering(value);
    } else if (name == "marks") {
      board_.land_marks = places(value);
    } else {
      fail(name, "one of inner, outter, step_y, dot, numbering, marks");
    }
  }

  BoardNumbering numbering(std::string_view value) const {
    if (value != "growth" && value != "search") fail(value, "numbering=growth or numbering=search");
    return value == "growth" ? BoardNumbering::kGrowth : BoardNumbering::kSearch;
  }

  std::vector<BoardPlace> places(std::string_view value) const {
    std::vector<BoardPlace> marks;
    for (const std::string_view piece : split(value, '/')) {
      const auto [column, row] = counts(piece, ',', "marks=COLUMN,ROW/COLUMN,ROW/COLUMN,ROW/COLUMN,ROW");
      marks.push_back({column, row});
    }
    return marks;
  }

  const std::string& text_;
  BoardDescription board_;
};

std::string marksText(const std::vector<BoardPlace>& marks) {
  std::string text;
  for (const BoardPlace& mark : marks) text += fmt::format("{}{},{}", text.empty() ? "" : "/", mark.column, mark.row);
  return text;
}

}  // namespace

BoardDescription parseBoard(const std::string& text) {
  BoardDescription board = BoardReader(text).read();
  checkBoard(board);
  return board;
}

std::vector<std::string> boardKinds() {
  std::vector<std::string> names;
  names.reserve(boards::kKindNames.size());
  for (const boards::KindName& each : boards::kKindNames) names.emplace_back(each.name);
  return names;
}

std::string boardText(const BoardDescription& board) {
  const auto* const known = std::ranges::find(boards::kKindNames, board.kind, &boards::KindName::kind);
  std::string text =
      fmt::format("{}:{}x{}:{}:inner={}x{}:outter={}x{}", known->name, board.cols, board.rows, board.step,
                  board.inner_width, board.inner_height, board.outter_width, board.outter_height);
  if (boards::rowStep(board) != board.step) text += fmt::format(":step_y={}", board.step_y);
  if (board.dot_radius != BoardDescription().dot_radius) text += fmt::format(":dot={}", board.dot_radius);
  if (board.numbering == BoardNumbering::kSearch) text += ":numbering=search";
  if (!board.land_marks.empty()) text += ":marks=" + marksText(board.land_marks);
  return text;
}

}  // namespace polarline
