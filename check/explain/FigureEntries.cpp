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

template <typename Value>
inline constexpr bool is_list_v = requires(const Value& value) {
  value.size();
};

bool isAmong(const auto& names, const std::string& name) { return std::ranges::count(names, name) != 0; }

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
      "0 is perfect. The limit '{0}{1}{0}<=VALUE' judges {3} of each pair{4}, '{0}summary.{1}{2}.mean{0}<=VALUE' the "
      "mean over the pairs.",
      bar, name, entry, is_list ? "every entry" : "it", each);
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
