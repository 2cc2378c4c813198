#include "check/judge/DetectCommand.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "check/set/ShellWord.h"
#include "polar/results/PairStatus.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

constexpr std::string_view kWords = "IMAGE --target FILE";

std::string pathOf(const Check& check, const std::string& role) {
  const auto found = std::ranges::find(check.inputs, role, &SetInput::role);
  return found == check.inputs.end() ? "" : found->path;
}

/// The pair that the library's status is of: the last one, where that ended the run, else the first that was given up.
const PairCheck* pairOf(const Check& check) {
  if (!check.status.code) return nullptr;
  if (!check.pairs.empty() && !check.pairs.back().finished && check.pairs.back().reason.code == *check.status.code)
    return &check.pairs.back();
  const auto first = std::ranges::find(check.pairs, false, &PairCheck::finished);
  return first == check.pairs.end() ? nullptr : &*first;
}

}  // namespace

std::string withDetectCommand(std::string advice, const Check& check, std::size_t pair, const std::string& side) {
  const std::size_t at = advice.find(kWords);
  if (at == std::string::npos) return advice;
  const std::string image = pathOf(check, (side == "right" ? "right/" : "left/") + std::to_string(pair));
  const std::string target = pathOf(check, "target");
  if (image.empty() || target.empty()) return advice;
  return advice.replace(at, kWords.size(), shellWord(image) + " --target " + shellWord(target));
}

std::string adviceOn(const PairCheck& pair, const std::string& advice, const Check& check) {
  const auto rectified = pair.reason.of_rectified && advice.find(kWords) != std::string::npos
                             ? explain(std::to_string(kMeasurementFailed) + " in a pair")
                             : std::nullopt;
  return rectified ? rectified->advice : withDetectCommand(advice, check, pair.index, pair.reason.side);
}

void nameDetectCommand(Check& check, std::size_t next) {
  const PairCheck* const pair = pairOf(check);
  check.status.advice = pair != nullptr ? adviceOn(*pair, check.status.advice, check)
                                        : withDetectCommand(check.status.advice, check, next, "left");
}

}  // namespace polarline
