#include "check/run/MissingKeys.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>
#include <vector>

#include "check/explain/WarningOf.h"

namespace polarline {
namespace {

using NamedSize = std::pair<const char*, std::size_t>;

/// Of the lists those with fewer entries than are read.
std::string shorter(const std::vector<NamedSize>& lists, std::size_t read, const char* by) {
  std::vector<std::string> absent;
  for (const auto& [name, size] : lists) {
    if (size != 0 && size < read)
      return fmt::format("{} has {} entries, and {} reads {}: one for each of Frame_ID", name, size, by, read);
    if (size < read) absent.emplace_back(name);
  }
  return absent.empty() ? "" : fmt::format("has no {}, which {} wants", fmt::join(absent, ", "), by);
}

/// An evaluation, and keys of its own whose default is no choice: it goes on with 0 or nothing.
struct KeyReader {
  const char* by;
  bool is_on;
  std::vector<const char*> keys;
};

std::vector<KeyReader> readersOf(const PolarConfig& c, bool is_rectified) {
  if (c.frame_work != 0 && !is_rectified) return {{"frame_work", true, {"Frame_ID", "Frame_ID_DIS"}}};
  const bool is_raw = !is_rectified;
  return {{"triangulate_dis_switch",
           is_raw && c.triangulate_dis_switch != 0,
           {"TriPoint1_ID", "TriPoint2_ID", "TriPoint3_ID", "TriPoint4_ID"}},
          {"dy_bias_switch", c.dy_bias_switch != 0, {"dy_bias_divid"}},
          {"allpoints_calc_switch", c.allpoints_calc_switch == 1, {"pattern_cols", "pattern_step"}},
          {"foursixmethod_swithch",
           c.foursixmethod_swithch == 1,
           {"PolPoint1_ID", "PolPoint2_ID", "PolPoint3_ID", "PolPoint4_ID"}},
          {"oqc_switch", is_rectified && c.oqc_switch == 1, {"Cal_ID_DIS"}}};
}

/// Switches of evaluations that give figures of each pair.
std::vector<const char*> switchesOf(const PolarConfig& c, bool is_rectified) {
  if (is_rectified) return {"dy_bias_switch", "foursixmethod_swithch"};
  if (c.frame_work != 0) return {};
  return {"triangulate_residual_switch", "triangulate_dis_switch", "discalswitch", "dy_bias_switch",
          "foursixmethod_swithch"};
}

template <typename Names>
std::vector<std::string> absentFrom(const std::set<std::string>& keys, const Names& names) {
  std::vector<std::string> absent;
  std::ranges::copy_if(names, std::back_inserter(absent), [&](const char* name) { return !keys.contains(name); });
  return absent;
}

}  // namespace

std::string missingKeys(const PolarConfig& c) {
  constexpr std::size_t kPoint = 3;
  if (c.frame_work != 0) {
    const std::vector<NamedSize> lists = {
        {"Frame_3D", c.Frame_3D.size()}, {"Frame_IRL", c.Frame_IRL.size()}, {"Frame_IRR", c.Frame_IRR.size()}};
    return shorter(lists, c.Frame_ID.size(), "frame_work");
  }
  std::string missing;
  if (c.triangulate_dis_switch != 0) {
    missing = shorter({{"TriPoint1_GT", c.TriPoint1_GT.size()},
                       {"TriPoint2_GT", c.TriPoint2_GT.size()},
                       {"TriPoint3_GT", c.TriPoint3_GT.size()},
                       {"TriPoint4_GT", c.TriPoint4_GT.size()}},
                      kPoint, "triangulate_dis_switch");
  }
  if (!missing.empty() || c.foursixmethod_swithch != 1) return missing;
  return shorter({{"PolPoint1_GT", c.PolPoint1_GT.size()},
                  {"PolPoint2_GT", c.PolPoint2_GT.size()},
                  {"PolPoint3_GT", c.PolPoint3_GT.size()},
                  {"PolPoint4_GT", c.PolPoint4_GT.size()}},
                 kPoint, "foursixmethod_swithch");
}

void warnOfMissingKeys(const std::string& path, const PolarInput& polar, bool is_rectified,
                       std::vector<Warning>& warnings) {
  for (const KeyReader& reader : readersOf(polar.config, is_rectified)) {
    const std::vector<std::string> absent = absentFrom(polar.keys, reader.keys);
    if (!reader.is_on || absent.empty()) continue;
    const char* const stands = absent.size() == 1 ? "it counts as 0 or empty" : "they count as 0 or empty";
    warnings.push_back(warningOf("missing_key", fmt::format("{}: has no {}, which {} reads: {}", path,
                                                            fmt::join(absent, ", "), reader.by, stands)));
  }
  const std::vector<const char*> switches = switchesOf(polar.config, is_rectified);
  const std::vector<std::string> absent = absentFrom(polar.keys, switches);
  if (absent.empty() || absent.size() == switches.size()) return;
  warnings.push_back(warningOf("missing_key", fmt::format("{}: has no {}, and what it would switch on is not measured",
                                                          path, fmt::join(absent, ", "))));
}

}  // namespace polarline
