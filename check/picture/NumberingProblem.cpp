#include "check/picture/NumberingProblem.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace polarline {
namespace {

/// The one that tells the reason of the others first.
constexpr std::array<std::string_view, 3> kWrongNumbers = {"marker_span", "mirrored_board", "strange_ids"};

}  // namespace

std::optional<Warning> numberingProblem(const Detection& detection) {
  for (const std::string_view code : kWrongNumbers) {
    const auto found = std::ranges::find(detection.warnings, code, &Warning::code);
    if (found != detection.warnings.end()) return *found;
  }
  return std::nullopt;
}

}  // namespace polarline
