#include "check/run/BoardInput.h"

#include <fmt/format.h>

#include <cmath>
#include <sstream>

#include "Tallowfen/src/RingTarget.h"
#include "check/explain/WarningOf.h"
#include "check/picture/TargetFile.h"
#include "check/picture/TargetNumbers.h"
#include "check/run/InputText.h"
#include "check/run/PlainPath.h"
#include "check/set/ByteOrderMark.h"
#include "input/BoardGroundTruthReader.h"
#include "platform/Files.h"
#include "platform/Median.h"
#include "platform/PlainNumber.h"
#include "polar/results/PairStatus.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

/// Of the step: a board that was measured dot by dot differs by less from the one that was drawn.
constexpr double kSameStep = 0.01;

/// Of dots whose numbers differ by `apart`: 1 in a row, the number of columns in a column.
double medianDistance(const BoardGroundTruth& truth, std::size_t cols, std::size_t apart) {
  std::vector<double> distances;
  for (std::size_t id = 0; id + apart < truth.size(); ++id) {
    if (apart == 1 && id % cols == cols - 1) continue;
    distances.push_back(cv::norm(truth[id + apart] - truth[id]));
  }
  return distances.empty() ? 0.0 : rank::upperMedian(distances);
}

}  // namespace

BoardGroundTruth readBoardTruth(const InputFile& file) {
  std::istringstream lines(contentOf(file));
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    std::istringstream words(line);
    words.imbue(std::locale::classic());
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    const bool is_blank = line.find_first_not_of(" \t\r") == std::string::npos;
    if (!is_blank && !(words >> x >> y >> z))
      throw InputError(fmt::format("{}, line {}", file.shown, number),
                       shownOf(line) + " was found; three numbers x y z were wanted" + byte_order_mark::wordsOf(line));
  }
  BoardGroundTruth points;
  ReadBoardTxt(file.path, points);
  return points;
}

void warnOfBoardTruth(const std::string& path, const PolarConfig& config, const BoardInfo& board,
                      std::vector<Warning>& warnings) {
  if (!config.discalswitch && !config.spaceRms_switch) return;
  const std::size_t dots = static_cast<std::size_t>(board.rows) * static_cast<std::size_t>(board.cols);
  if (path.empty()) {
    warnings.push_back(
        warningOf("no_board_truth", "discalswitch or spaceRms_switch is on, and there is no board_gt.txt"));
  } else if (board.points < dots && config.frame_work == 0) {
    std::string text = fmt::format("{}: {} positions; the board has {} dots", path, board.points, dots);
    if (board.points < kLeastBoardPoints)
      text += fmt::format(", and its fit wants {}: figures of it have no value", kLeastBoardPoints);
    warnings.push_back(warningOf("board_truth_short", text));
  }
}

void warnOfSteps(const Set& set, const PolarConfig& config, const BoardInfo& board, const BoardGroundTruth& truth,
                 std::vector<Warning>& warnings) {
  const auto differ = [](double one, double other) { return std::abs(one - other) > kSameStep * std::abs(other); };
  const auto warn = [&](const std::string& path, const char* what, double found, const char* key, double wanted) {
    warnings.push_back(
        warningOf("steps_differ", fmt::format("{}: {} {}; the target's {} is {}", path, what, plain::rounded(found, 4),
                                              key, plain::rounded(wanted, 4))));
  };
  if (config.foursixmethod_swithch != 0 && config.allpoints_calc_switch != 0 &&
      differ(config.pattern_step, board.step) && differ(config.pattern_step, board.step_y))
    warn(set.polar, "pattern_step is", config.pattern_step, "step", board.step);
  const auto cols = static_cast<std::size_t>(board.cols);
  if (truth.empty() || truth.size() != static_cast<std::size_t>(board.rows) * cols) return;
  const double across = medianDistance(truth, cols, 1), down = medianDistance(truth, cols, cols);
  if (differ(across, board.step)) warn(set.board, "neighbours in a row are apart by", across, "step", board.step);
  if (differ(down, board.step_y)) warn(set.board, "neighbours in a column are apart by", down, "step_y", board.step_y);
}

BoardInfo readBoardInfo(const InputFile& file) {
  const std::string& target_path = file.shown;
  kestrune::RingTarget target;
  requireLength(file);
  try {
    const PlainPath plain(file.path);
    target.loadConfig(plain.get());
    // The library would look for a board of its own.
    if (target.patterns().empty() && !isTargetName(target_path))
      throw InputError(target_path,
                       "is no target by its name; one that ends in ini, json, yml, yaml or xml was wanted");
    if (target.patterns().empty())
      throw InputError(target_path, "board_type: none that is known was found; 1, 2 or 3 was wanted");
    requireBoardNumbers(plain.get(), target_path);
  } catch (const InputError&) {
    throw;
  } catch (const std::exception&) {
    if (files::extensionOf(target_path) == "json") requireJson(file);
    throw InputError(target_path,
                     "can't be read as a target: a well-formed JSON, YAML or XML document with the record "
                     "\"patterns\" and a board_type of 1, 2 or 3 was wanted");
  }
  const kestrune::RingTargetConfig& config = target.config();
  BoardInfo board;
  board.type = config.board_type;
  board.rows = config.rows;
  board.cols = config.cols;
  board.step = config.step;
  board.step_y = kestrune::rowPitchOf(config);
  return board;
}

}  // namespace polarline
