#include "check/run/NoFigures.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>

#include "PolarLinePrecision/Status.h"
#include "check/run/RunStatus.h"
#include "polar/results/PairStatus.h"
#include "polarline/exit_code.h"

namespace polarline {
namespace {

bool hasFigure(const PairCheck& pair) {
  return std::ranges::any_of(pair.figures,
                             [](const Figure& figure) { return figure.is_own && !figure.values.empty(); });
}

std::string whyNone(const RunInputs& inputs) {
  const PolarConfig& config = inputs.config;
  if (inputs.areFrames()) return "frame_work is on, and Frame_ID_DIS names no distance to judge";
  std::string off;
  for (const auto& [name, is_on] :
       {std::pair("triangulate_residual_switch", config.triangulate_residual_switch != 0),
        std::pair("triangulate_dis_switch", config.triangulate_dis_switch != 0),
        std::pair("discalswitch", config.discalswitch), std::pair("dy_bias_switch", config.dy_bias_switch != 0),
        std::pair("foursixmethod_swithch", config.foursixmethod_swithch != 0),
        std::pair("spaceRms_switch", config.spaceRms_switch)}) {
    if (!is_on) off += (off.empty() ? "" : ", ") + std::string(name);
  }
  std::string why = off.empty() ? "" : "these switches are off: " + off;
  if ((config.spaceRms_switch || config.discalswitch) && inputs.board.size() < kLeastBoardPoints) {
    why += fmt::format("{}board_gt.txt has {} true positions, and the fit of the board wants {}",
                       why.empty() ? "" : "; ", inputs.board.size(), kLeastBoardPoints);
  }
  return why.empty() ? "no evaluation that is on came to one" : why;
}

}  // namespace

std::optional<Status> nothingMeasured(const Check& check, const RunInputs& inputs) {
  if (check.finished() == 0 || std::ranges::any_of(check.pairs, hasFigure)) return std::nullopt;
  return statusOf("nothing_measured", fmt::format("no pair has a figure: {}", whyNone(inputs)), kNoFigure);
}

std::optional<Status> wantedBeyondBoard(const Check& check, const RunInputs& inputs) {
  const bool is_of_point = std::ranges::any_of(
      check.pairs, [](const PairCheck& pair) { return pair.reason.code == polar_status::kPointMissing; });
  if (check.finished() != 0 || !is_of_point) return std::nullopt;
  const PolarConfig& c = inputs.config;
  const int dots = check.board.rows * check.board.cols;
  for (const auto& [name, id, is_on] : {std::tuple("TriPoint1_ID", c.TriPoint1_ID, c.triangulate_dis_switch != 0),
                                        {"TriPoint2_ID", c.TriPoint2_ID, c.triangulate_dis_switch != 0},
                                        {"TriPoint3_ID", c.TriPoint3_ID, c.triangulate_dis_switch != 0},
                                        {"TriPoint4_ID", c.TriPoint4_ID, c.triangulate_dis_switch != 0},
                                        {"PolPoint1_ID", c.PolPoint1_ID, c.foursixmethod_swithch == 1},
                                        {"PolPoint2_ID", c.PolPoint2_ID, c.foursixmethod_swithch == 1},
                                        {"PolPoint3_ID", c.PolPoint3_ID, c.foursixmethod_swithch == 1},
                                        {"PolPoint4_ID", c.PolPoint4_ID, c.foursixmethod_swithch == 1}}) {
    if (!is_on || (id >= 0 && id < dots)) continue;
    return statusOf("input",
                    fmt::format("{}: {} is {}; the board has the dots 0 to {}", inputs.set.polar, name, id, dots - 1),
                    kUnusable);
  }
  return std::nullopt;
}

}  // namespace polarline
