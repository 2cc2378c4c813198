#include <algorithm>
#include <iterator>

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

/// A refined figure means what the figure does, and so does an entry of a list, as tri_dis[0].
std::string withoutPlace(const std::string& code) {
  const std::string name = code.starts_with(kRefinedPrefix) ? code.substr(kRefinedPrefix.size()) : code;
  return name.ends_with(']') ? name.substr(0, name.find('[')) : name;
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
  return offer(nearest(code, names));
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
