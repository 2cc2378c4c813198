#include "python/src/FigureText.h"

#include <map>
#include <optional>

#include "polarline/explain.h"

namespace binding {
namespace {

constexpr const char* kMagnitude = "0 or more";

/// Figures that may be something else than 0 or more.
const std::map<std::string, std::string>& ranges() {
  static const std::string residual = "0 to 5, as what is larger does not count";
  static const std::string four = "An array of 8; entries may have either sign";
  static const std::string named = "An array of an entry each, which may have either sign";
  static const std::map<std::string, std::string> all = {
      {"tri_rms", residual},   {"tri_mean", residual},
      {"tri_min", residual},   {"tri_max", residual},
      {"dy_ratio", "0 to 1"},  {"allpoints_means", "Either sign"},
      {"tri_dis", four},       {"pol_dis", four},
      {"id_dis", named},       {"frameValues", named},
      {"zero_dis", "Above 0"}, {"PoseReport", "An array of 8; angles are -180 to 180, distances above 0"},
  };
  return all;
}

}  // namespace

std::string figureText(const std::string& name) {
  const std::optional<polarline::Explanation> explained = polarline::explain(name);
  const auto range = ranges().find(name);
  return (explained ? explained->meaning + " " : "") + (range == ranges().end() ? kMagnitude : range->second) + ".";
}

}  // namespace binding
