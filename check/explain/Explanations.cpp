#include <algorithm>
#include <array>
#include <iterator>
#include <regex>
#include <sstream>
#include <string_view>

#include "calibrations/Warnings.h"
#include "check/explain/FigureEntries.h"
#include "check/explain/Names.h"
#include "check/explain/Tables.h"
#include "check/init/Warnings.h"
#include "diagnose/causes/CauseWords.h"
#include "diagnose/warnings/Codes.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

/// Those of a table of codes.
template <typename Codes>
std::vector<Explanation> warningsOf(const Codes& codes) {
  std::vector<Explanation> list;
  list.reserve(codes.size());
  for (const auto& each : codes) list.push_back({each.code, each.code, each.meaning, each.advice, {}});
  return list;
}

std::vector<Explanation> causes() {
  std::vector<Explanation> list;
  list.reserve(kCauses);
  for (std::size_t k = 0; k < kCauses; ++k) {
    const auto kind = static_cast<CauseKind>(k);
    const std::string name = cause_words::nameOf(kind);
    list.push_back({name, name, cause_words::meaningOf(kind),
                    "A check names it in its diagnosis; --write-corrected takes it out of the calibration.",
                    cause_words::unitOf(kind)});
  }
  return list;
}

std::vector<Explanation> all() {
  std::vector<Explanation> list;
  for (const auto& part : {exitEntries(), statusEntries(), warningEntries(), stepEntries()}) {
    list.reserve(list.size() + part.size());
    for (const Entry& each : part) list.push_back({each.code, each.name, each.meaning, each.advice, {}});
  }
  for (std::vector<Explanation>& part :
       std::vector{warningsOf(diagnose::warningCodes()), warningsOf(calibrations::warningCodes()),
                   warningsOf(init::warningCodes()), figureExplanations(), causes()}) {
    std::ranges::move(part, std::back_inserter(list));
  }
  return list;
}

/// What stands around a figure's name on its way through a document or in a limit.
constexpr auto kAroundFigures =
    std::to_array<std::string_view>({"summary", "refined", "figures", "pairs", "uncertainty", "mean", "sd", "min",
                                     "max", "worst_pair", "sd_mean", "low95", "high95"});

/// Of a way through a document or a limit's left side, as "summary.dy_means.mean", "refined.tri_dis[0]" or "|tri_dis|",
/// the name at which it comes by: a figure means the same wherever it stands. Another text, or a bare word, as it is.
std::string withoutPlace(const std::string& code) {
  std::string name;
  std::istringstream words(std::regex_replace(code, std::regex(R"(^\||\|$|\[\d+\])"), ""));
  for (std::string word; std::getline(words, word, '.');) {
    if (std::ranges::count(kAroundFigures, std::string_view(word)) != 0) continue;
    if (!name.empty()) return code;
    name = word;
  }
  return name.empty() ? code : name;
}

}  // namespace

const std::vector<Explanation>& explanations() {
  static const std::vector<Explanation> list = all();
  return list;
}

std::optional<Explanation> explain(const std::string& code) {
  const auto& list = explanations();
  const std::string wanted = withoutPlace(code);
  const auto found =
      std::ranges::find_if(list, [&](const Explanation& each) { return each.code == wanted || each.name == wanted; });
  if (found == list.end()) return std::nullopt;
  return *found;
}

std::string nearestCodes(const std::string& code) {
  std::vector<std::string> names;
  for (const Explanation& each : explanations()) {
    for (const std::string& name : {each.code, each.name}) {
      if (std::ranges::count(names, name) == 0) names.push_back(name);
    }
  }
  return offer(nearest(withoutPlace(code), names));
}

std::optional<Explanation> explainPair(std::int32_t code, bool of_residuals) {
  const std::string number = std::to_string(code);
  if (of_residuals) {
    if (auto explained = explain(number + " of residuals")) return explained;
  }
  auto in_pair = explain(number + " in a pair");
  return in_pair ? in_pair : explain(number);
}

std::vector<Explanation> explainAll(const std::string& code) {
  const std::string name = withoutPlace(code);
  std::vector<Explanation> found;
  std::ranges::copy_if(explanations(), std::back_inserter(found), [&](const Explanation& each) {
    return each.code == code || each.name == code || each.name == name || each.code == "exit " + code ||
           each.code == code + " in a pair" || each.code == code + " of residuals";
  });
  return found;
}

}  // namespace polarline
