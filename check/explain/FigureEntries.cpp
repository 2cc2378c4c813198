#include "check/explain/FigureEntries.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>
#include <type_traits>

#include "polar/results/FigureList.h"

namespace polarline {
namespace {

/// Errors with a sign.
constexpr std::array<std::string_view, 5> kSigned = {"tri_dis", "pol_dis", "id_dis", "frameValues", "allpoints_means"};
/// What has no best value: where the board stood.
constexpr std::array<std::string_view, 2> kPlaces = {"zero_dis", "PoseReport"};

/// What is left with an exact calibration: of 'polarline simulate big_1280', the least and the most of its three pairs,
/// of lists of the entry farthest from 0. No real pair is better, so a limit below these holds by luck.
struct Typical {
  std::string_view name;
  const char* values;
};
constexpr std::array<Typical, 18> kTypical = {{{"tri_rms", "0.009"},
                                               {"tri_mean", "0.007"},
                                               {"tri_max", "0.029 to 0.031"},
                                               {"tri_dis", "0.16 to 0.24"},
                                               {"dy_means", "0.013"},
                                               {"dy_max", "0.056 to 0.058"},
                                               {"dy_ratio", "0"},
                                               {"pol_dis", "0.18 to 0.28"},
                                               {"space_rms", "0.23 to 0.26"},
                                               {"dis_rms", "0.08 to 0.10"},
                                               {"nor_rms", "0.0005 to 0.0006"},
                                               {"icp_x_rms", "0.038 to 0.044"},
                                               {"icp_y_rms", "0.036 to 0.039"},
                                               {"icp_z_rms", "0.22 to 0.26"},
                                               {"icp_nor_rms", "0.23 to 0.26"},
                                               {"gt_rms", "0.024"},
                                               {"allpoints_means", "9.2"},
                                               {"allpoint_max", "581"}}};
/// The dot behind the last of a row is the next row's first: the way there counts as a spacing, too.
constexpr std::array<std::string_view, 2> kAcrossRows = {"allpoints_means", "allpoint_max"};

bool isAmong(const auto& names, const std::string& name) { return std::ranges::count(names, name) != 0; }

std::string typicalOf(const std::string& name) {
  const auto* const found = std::ranges::find(kTypical, name, &Typical::name);
  if (found == kTypical.end()) return "0 is perfect.";
  const std::string left = fmt::format(
      "with an exact calibration {} is left on the rendered set big_1280 (1280 columns, a board with steps of 20, 1100 "
      "to 1200 away).",
      found->values);
  if (!isAmong(kAcrossRows, name)) return "0 is perfect; " + left;
  return "The way from a row's last dot to the next row's first counts as a spacing, too, so 0 can't be reached; " +
         left + " Compare it with that of a good pair on the same board.";
}

template <typename Value>
inline constexpr bool is_list_v = requires(const Value& value) {
  value.size();
};

std::string meaningOf(const std::string& text, const std::string& unit) {
  const std::string of_unit = unit == "1" ? "without a unit" : unit == "board unit" ? "in board units" : "in " + unit;
  return fmt::format("A figure, {}: {}{}.", of_unit, static_cast<char>(std::tolower(text.front())), text.substr(1));
}

std::string adviceOf(const std::string& name, bool is_list) {
  if (isAmong(kPlaces, name))
    return fmt::format("It tells where the board stood; '{}' judges it.",
                       is_list ? name + "[0]<=VALUE" : name + "<=VALUE");
  const std::string bar = hasSign(name) ? "|" : "";
  const std::string entry = is_list ? "[0]" : "";
  const std::string each = is_list ? fmt::format("; '{0}{1}[0]{0}<=VALUE' its first entry", bar, name) : "";
  return fmt::format(
      "{5} The limit '{0}{1}{0}<=VALUE' judges {3} of each pair{4}, '{0}summary.{1}{2}.mean{0}<=VALUE' the mean over "
      "the pairs.",
      bar, name, entry, is_list ? "every entry" : "it", each, typicalOf(name));
}

}  // namespace

bool hasSign(const std::string& figure) { return isAmong(kSigned, figure); }

std::vector<Explanation> figureExplanations() {
  std::vector<Explanation> list;
  const PairFigures none;
  figure_list::forEach([&](const auto& figure) {
    if (*figure.unit == '\0') return;  // Pictures and points.
    const bool is_list = is_list_v<std::remove_cvref_t<decltype(figure.valueIn(none))>>;
    list.push_back({figure.name, figure.name, meaningOf(figure.meaning, figure.unit), adviceOf(figure.name, is_list),
                    figure.unit});
  });
  return list;
}

}  // namespace polarline
