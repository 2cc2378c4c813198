#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <filesystem>
#include <sstream>
#include <string>
#include <system_error>

#include "Tallowfen/src/RingTarget.h"
#include "board/marks/DetectorConfig.h"
#include "platform/Console.h"
#include "polarline/board.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using kestrune::RingTargetConfig;

/// The detector takes every other file's path for the configuration itself.
void requireReadable(const std::string& path) {
  std::error_code failure;
  const fs::file_status status = fs::status(path, failure);
  if (!fs::exists(status)) throw InputError(path, "there is no such file");
  if (!fs::is_regular_file(status)) throw InputError(path, "is no file");
  constexpr std::array<const char*, 5> kEndings = {"ini", ".json", ".yml", ".yaml", ".xml"};
  const bool known = std::ranges::any_of(kEndings, [&](const char* ending) { return path.ends_with(ending); });
  if (!known) throw InputError(path, "wanted a name that ends in ini, .json, .yml, .yaml or .xml");
}

RingTargetConfig readConfig(const std::string& path) {
  requireReadable(path);
  std::ostringstream lines;
  const console::Redirection silence(lines, lines);
  kestrune::RingTarget target;
  try {
    if (!target.loadConfig(path)) throw InputError(path, "is empty");
  } catch (const InputError&) {
    throw;
  } catch (const std::exception& error) {
    throw InputError(path, std::string("is no target configuration: ") + error.what());
  }
  if (target.patterns().empty()) throw InputError(path + ": board_type", "wanted 1, 2 or 3");
  return target.config();
}

BoardPlace markPlace(const std::string& path, int number, int x, int y, boards::LandMarkUnit unit) {
  if (unit.x > 0 && unit.y > 0 && x % unit.x == 0 && y % unit.y == 0) return {x / unit.x, y / unit.y};
  throw InputError(fmt::format("{}: land_mark{}_x, land_mark{}_y", path, number, number),
                   fmt::format("found {}, {}, wanted a place of the grid: {} for each column and {} for each row", x, y,
                               unit.x, unit.y));
}

BoardKind kindOf(BoardRings rings) {
  if (rings == BoardRings::kSmall) return BoardKind::kSmallRings;
  return rings == BoardRings::kBig ? BoardKind::kBigRings : BoardKind::kMixedRings;
}

/// The shortest decimal that reads as this float, as it was written in the file.
double asWritten(float value) {
  const std::string text = fmt::format("{}", value);
  double number = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

BoardNumbering numberingOf(const std::string& path, int id_method) {
  if (id_method == kestrune::kIdsByGrowth) return BoardNumbering::kGrowth;
  if (id_method == kestrune::kIdsBySearch) return BoardNumbering::kSearch;
  throw InputError(path + ": id_method", fmt::format("found {}, wanted 0 or 1", id_method));
}

void readBigDots(const std::string& path, const RingTargetConfig& config, BoardDescription& board) {
  board.kind = BoardKind::kBigDots;
  board.step_y = asWritten(config.step_y);
  board.numbering = numberingOf(path, config.id_method);
  if (config.land_mark_switch != kestrune::kSwitchedOn) return;
  const boards::LandMarkUnit unit = boards::landMarkUnit(board);
  board.land_marks = {markPlace(path, 1, config.land_mark1_x, config.land_mark1_y, unit),
                      markPlace(path, 2, config.land_mark2_x, config.land_mark2_y, unit),
                      markPlace(path, 3, config.land_mark3_x, config.land_mark3_y, unit),
                      markPlace(path, 4, config.land_mark4_x, config.land_mark4_y, unit)};
}

}  // namespace

BoardDescription readBoard(const std::string& path, BoardRings rings) {
  const RingTargetConfig config = readConfig(path);
  BoardDescription board;
  board.kind = kindOf(rings);
  board.rows = config.rows;
  board.cols = config.cols;
  board.inner_width = config.inner_width;
  board.inner_height = config.inner_height;
  board.outter_width = config.outter_width;
  board.outter_height = config.outter_height;
  board.step = asWritten(config.step);
  if (config.ratio_solid != 0.0F) board.dot_radius = asWritten(config.ratio_solid);
  if (config.board_type == kestrune::kBigDotBoard) readBigDots(path, config, board);
  try {
    checkBoard(board);
  } catch (const InputError& error) {
    throw InputError(path, error.what());
  }
  return board;
}

}  // namespace polarline
