#include "check/init/PolarText.h"

#include <fmt/format.h>

#include <array>
#include <utility>
#include <vector>

#include "input/PolarConfigKeys.h"

namespace init {
namespace {

using polar_keys::Group;

constexpr std::array<std::pair<Group, const char*>, 4> kGroups = {{{Group::kGeneral, "General"},
                                                                   {Group::kRawPair, "Raw pair"},
                                                                   {Group::kRectifiedPair, "Rectified pair"},
                                                                   {Group::kFrame, "Frame"}}};

std::string written(bool value) { return value ? "1" : "0"; }

template <typename Number>
std::string written(const Number& value) {
  return fmt::format("{}", value);
}

/// Without blanks, at which the reading of a list ends.
template <typename Item>
std::string written(const std::vector<Item>& items) {
  std::string text = "[";
  for (const Item& item : items) {
    if (text.size() > 1) text += ',';
    text += written(item);
  }
  return text + ']';
}

template <typename Key>
std::string entry(const Key& key, const PolarConfig& config, const KeyNotes& notes) {
  const std::string unit = *key.unit == '\0' ? "" : fmt::format("{}; ", key.unit);
  const auto found = notes.find(key.name);
  const std::string note = found == notes.end() ? "" : fmt::format("# Chosen here: {}.\n", found->second);
  return fmt::format("\n# {}.\n# {}{}\n{}{}: {}\n", key.meaning, unit, key.values, note, key.name,
                     written(key.valueIn(config)));
}

}  // namespace

std::string polarText(const PolarConfig& config, const std::string& title, const KeyNotes& notes) {
  std::string text = fmt::format("# {}\n", title);
  for (const auto& [group, heading] : kGroups) {
    text += fmt::format("\n# ---- {} ----\n", heading);
    polar_keys::forEach([&, group = group](const auto& key) {
      if (key.group == group) text += entry(key, config, notes);
    });
  }
  return text;
}

}  // namespace init
