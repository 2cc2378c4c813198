#pragma once

#include <array>
#include <string_view>

#include "polarline/board.h"

namespace boards {

/// The kinds as they are written on a command line.
struct KindName {
  polarline::BoardKind kind;
  std::string_view name;
};
inline constexpr std::array<KindName, 4> kKindNames = {{{polarline::BoardKind::kSmallRings, "rings-small"},
                                                        {polarline::BoardKind::kBigRings, "rings-big"},
                                                        {polarline::BoardKind::kMixedRings, "rings-mixed"},
                                                        {polarline::BoardKind::kBigDots, "dots"}}};

}  // namespace boards
