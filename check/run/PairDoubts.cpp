#include "check/run/PairDoubts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "check/explain/WarningOf.h"
#include "check/picture/BoardExtent.h"
#include "check/run/PlainPath.h"

namespace polarline {
namespace {

/// Then nothing speaks against the described size.
bool showsAll(const PairCheck& pair, const BoardInfo& board) {
  const auto all = static_cast<std::size_t>(board.cols) * static_cast<std::size_t>(board.rows);
  return pair.found_left == all && pair.found_right == all && pair.points.id.size() == all &&
         pair.points.id.back() + 1 == static_cast<std::int32_t>(all);
}

bool isNoNumber(const Figure& figure) {
  return figure.is_own && std::ranges::any_of(figure.values, [](double value) { return !std::isfinite(value); });
}

}  // namespace

void PairDoubts::look(const PairCheck& pair, const std::array<cv::Mat, 2>& pictures) {
  if (!pair.finished) return;
  lookAtSize(pair, pictures);
  lookAtNumbers(pair);
}

/// All pairs are of one board: one more detection of the first is enough.
void PairDoubts::lookAtSize(const PairCheck& pair, const std::array<cv::Mat, 2>& pictures) {
  if (std::exchange(knows_size_, true) || target_.empty() || showsAll(pair, board_)) return;
  const PlainPath target(target_);
  const std::string problem = sizeProblem(pictures[0], pictures[1], target.get());
  if (!problem.empty()) warnings.push_back(warningOf("board_size", problem, static_cast<int>(pair.index)));
}

void PairDoubts::lookAtNumbers(const PairCheck& pair) {
  if (isTold("not_a_number")) return;
  std::vector<std::string> names;
  for (const Figure& figure : pair.figures) {
    if (isNoNumber(figure)) names.emplace_back(figure.name);
  }
  if (names.empty()) return;
  const std::string text =
      fmt::format("{} of pair {} can't be computed (nan or inf stands there)", fmt::join(names, ", "), pair.index);
  warnings.push_back(warningOf("not_a_number", text, static_cast<int>(pair.index)));
}

bool PairDoubts::isTold(const std::string& code) const {
  return std::ranges::count(warnings, code, &Warning::code) != 0;
}

}  // namespace polarline
