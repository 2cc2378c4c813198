#include "tools/polarline/manual/Values.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <string_view>

#include "polarline/board.h"
#include "polarline/calibration.h"
#include "polarline/check.h"
#include "polarline/explain.h"
#include "polarline/simulate.h"

namespace manual {
namespace {

constexpr std::array<std::string_view, 12> kPaths = {"FILE",  "FILES", "FOLDER", "DIR",  "DIRS", "SET",
                                                     "IMAGE", "CHECK", "STORE",  "LIST", "GLOB", "PATH"};

/// "{A1,A2}" behind the type, where there is one.
std::vector<std::string> choiceOf(const std::string& type) {
  const std::size_t begin = type.find('{');
  const std::size_t end = type.find('}', begin);
  if (begin == std::string::npos || end == std::string::npos) return {};
  return CLI::detail::split(type.substr(begin + 1, end - begin - 1), ',');
}

/// Words that a shell takes as they are and that are no options.
bool isPlain(const std::string& word) {
  return !word.empty() && word.front() != '-' && std::ranges::all_of(word, [](unsigned char c) {
    return std::isalnum(c) != 0 || c == '_' || c == '.' || c == '-';
  });
}

std::vector<std::string> explained() {
  std::vector<std::string> words;
  for (const polarline::Explanation& each : polarline::explanations())
    for (const std::string& word : {each.code, each.name})
      if (isPlain(word) && std::ranges::find(words, word) == words.end()) words.push_back(word);
  return words;
}

/// Each with an end behind which the user writes on.
Values begun(std::vector<std::string> words, char end) {
  for (std::string& word : words) word += end;
  return {false, std::move(words), true};
}

std::vector<std::string> presetNames() {
  std::vector<std::string> words;
  for (const polarline::PresetInfo& preset : polarline::presets()) words.push_back(preset.name);
  return words;
}

}  // namespace

std::string valueName(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.substr(0, type.find(':'));
}

Values valuesOf(const CLI::Option& option) {
  const std::string name = option.nonpositional() ? valueName(option) : option.get_name(true, false);
  if (option.get_type_size() == 0) return {};
  if (name == "LIMIT") return {false, polarline::limitNames(), true};
  if (name == "CODE") return {false, explained()};
  if (name == "SCENE" || name == "PRESET") return {true, presetNames()};
  if (name == "FORMAT") return {false, polarline::calibrationFormats()};
  if (name == "MODEL") return {false, {"brown", "fisheye"}};
  if (name == "HOW") return {false, {"auto", "names", "stamps", "order"}};
  if (name == "KEY=VALUE") return begun(polarline::settingKeys(), '=');
  if (name == "BOARD") return begun(polarline::boardKinds(), ':');
  const bool is_path = std::ranges::count(kPaths, name) + std::ranges::count(kPaths, valueName(option)) > 0;
  return {is_path, choiceOf(option.get_type_name())};
}

}  // namespace manual
