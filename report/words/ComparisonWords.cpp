#include "report/words/ComparisonWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <string_view>

#include "platform/PlainNumber.h"
#include "polarline/check.h"

namespace polarline {
namespace {

using Judged = Difference::Judged;

/// A sentence names no more.
constexpr std::size_t kMostNamed = 3;
constexpr std::string_view kRefinedName = "refined.";

/// Those that matter most come first.
std::ptrdiff_t rankOf(const std::string& figure) {
  const std::vector<std::string>& main = mainFigures();
  return std::ranges::find(main, figure) - main.begin();
}

/// The library's own, whole: entries of lists and refined figures stand in the table.
bool isTold(const std::string& name) { return name.find('[') == std::string::npos && !name.starts_with(kRefinedName); }

std::vector<const ComparedFigure*> judged(const std::vector<ComparedFigure>& figures, std::size_t check, Judged how) {
  std::vector<const ComparedFigure*> all;
  for (const ComparedFigure& figure : figures) {
    const Difference& difference = figure.differences[check];
    if (isTold(figure.name) && difference.judged == how && std::isfinite(difference.value)) all.push_back(&figure);
  }
  std::ranges::stable_sort(all, {}, [](const ComparedFigure* figure) { return rankOf(figure->name); });
  return all;
}

std::string counted(std::size_t count) { return fmt::format("{} {}", count, count == 1 ? "figure" : "figures"); }

/// A difference of figures that are exact, or of which nobody knows how certain they are, has no ±.
std::string sizeOf(const Difference& difference) {
  const double size = std::abs(difference.value);
  return difference.sd > 0.0 ? plain::withError(size, difference.sd) : plain::rounded(size, 3);
}

/// "less: dy_means (by 0.1 ± 0.01 pixels), ... and 4 more".
std::string listed(const std::vector<const ComparedFigure*>& figures, std::size_t check, const char* word) {
  std::string text;
  for (std::size_t k = 0; k < std::min(figures.size(), kMostNamed); ++k) {
    const Difference& difference = figures[k]->differences[check];
    const std::string& unit = figures[k]->unit;
    text += fmt::format("{}{} (by {}{}{})", k == 0 ? "" : ", ", figures[k]->name, sizeOf(difference),
                        unit.empty() ? "" : " ", unit);
  }
  if (figures.size() > kMostNamed) text += fmt::format(" and {} more", counted(figures.size() - kMostNamed));
  return fmt::format(" {}: {}.", word, text);
}

bool isByDots(const std::vector<const ComparedFigure*>& figures, std::size_t check) {
  return std::ranges::any_of(figures, [&](const ComparedFigure* figure) {
    return figure->differences[check].basis == Difference::Basis::kDots;
  });
}

/// Files by role; all pictures together are one.
std::map<std::string, std::string> filesOf(const Check& check) {
  std::map<std::string, std::string> files;
  for (const SetInput& input : check.inputs) {
    const bool is_picture = input.role.starts_with("left/") || input.role.starts_with("right/");
    files[is_picture ? "pictures" : input.role] += input.sha256;
  }
  return files;
}

std::string ofCheck(const std::vector<std::string>& titles, const std::vector<ComparedFigure>& figures,
                    std::size_t check) {
  const auto less = judged(figures, check, Judged::kLess);
  const auto more = judged(figures, check, Judged::kMore);
  const auto none = judged(figures, check, Judged::kNone);
  const auto unknown = judged(figures, check, Judged::kUnknown);
  std::string text = fmt::format("{} against {}.", titles[check], titles[0]);
  if (!less.empty()) text += listed(less, check, "Less");
  if (!more.empty()) text += listed(more, check, "More");
  if (!none.empty())
    text += fmt::format(" None: {}, whose difference is within its uncertainty.", counted(none.size()));
  if (!unknown.empty()) {
    text += fmt::format(
        " Not known: {}, as five finished pairs of each check are needed to tell a difference of them "
        "from chance.",
        counted(unknown.size()));
  }
  if (isByDots(less, check) || isByDots(more, check) || isByDots(none, check)) {
    text +=
        " With fewer than five finished pairs in a check the ± is of the dots within them alone: other pairs may "
        "differ "
        "by more.";
  }
  if (less.empty() && more.empty() && none.empty() && unknown.empty()) text += " No figure was measured in both.";
  return text;
}

/// "calibration (1a2b3c4d, was 5e6f7a8b)": enough of a hash to find it in the table of files.
std::string changedWords(const std::string& role, const std::string& before, const std::string& now) {
  constexpr std::size_t kShown = 8;
  if (role == "pictures" || before.empty() || now.empty()) return role;
  return fmt::format("{} ({}, was {})", role, now.substr(0, kShown), before.substr(0, kShown));
}

}  // namespace

std::vector<std::string> changedInputs(const Check& first, const Check& other) {
  auto before = filesOf(first);
  auto now = filesOf(other);
  std::set<std::string> roles;
  for (const auto* files : {&before, &now}) {
    for (const auto& [role, hash] : *files) roles.insert(role);
  }
  std::vector<std::string> changed;
  for (const std::string& role : roles) {
    if (before[role] != now[role]) changed.push_back(role);
  }
  return changed;
}

std::string inputsWords(const Check& first, const Check& other) {
  if (first.inputs.empty() || other.inputs.empty()) return {};
  auto before = filesOf(first);
  auto now = filesOf(other);
  std::string text;
  for (const std::string& role : changedInputs(first, other))
    text += (text.empty() ? "" : ", ") + changedWords(role, before[role], now[role]);
  return text.empty() ? "All files are the same." : "Other files: " + text + ".";
}

std::string comparisonWords(const std::vector<std::string>& titles, const std::vector<ComparedFigure>& figures,
                            const std::vector<std::string>& inputs) {
  std::string text;
  for (std::size_t check = 1; check < titles.size(); ++check) {
    if (!text.empty()) text += ' ';
    text += ofCheck(titles, figures, check);
    if (check < inputs.size() && !inputs[check].empty()) text += " " + inputs[check];
  }
  return text;
}

}  // namespace polarline
