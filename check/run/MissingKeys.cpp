#include "check/run/MissingKeys.h"

#include <fmt/format.h>

#include <utility>
#include <vector>

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

}  // namespace polarline
