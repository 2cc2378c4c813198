#include "report/words/ComparisonWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/PlainNumber.h"
#include "polarline/check.h"

namespace polarline {
namespace {

using Judged = Difference::Judged;

/// A sentence names no more.
constexpr std::size_t kMostNamed = 3;

/// Those that matter most come first.
std::ptrdiff_t rankOf(const std::string& figure) {
  const std::vector<std::string>& main = mainFigures();
  return std::ranges::find(main, figure) - main.begin();
}

std::vector<const ComparedFigure*> judged(const std::vector<ComparedFigure>& figures, std::size_t check, Judged how) {
  std::vector<const ComparedFigure*> all;
  for (const ComparedFigure& figure : figures) {
    const Difference& difference = figure.differences[check];
    if (difference.judged == how && std::isfinite(difference.value)) all.push_back(&figure);
  }
  std::ranges::stable_sort(all, {}, [](const ComparedFigure* figure) { return rankOf(figure->name); });
  return all;
}

std::string counted(std::size_t count) { return fmt::format("{} {}", count, count == 1 ? "figure" : "figures"); }

/// "less: dy_means (by 0.1 ± 0.01 pixels), ... and 4 more".
std::string listed(const std::vector<const ComparedFigure*>& figures, std::size_t check, const char* word) {
  std::string text;
  for (std::size_t k = 0; k < std::min(figures.size(), kMostNamed); ++k) {
    const Difference& difference = figures[k]->differences[check];
    const std::string& unit = figures[k]->unit;
    text += fmt::format("{}{} (by {} ± {}{}{})", k == 0 ? "" : ", ", figures[k]->name,
                        plain::rounded(std::abs(difference.value), 3), plain::rounded(difference.sd, 2),
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

}  // namespace

std::string comparisonWords(const std::vector<std::string>& titles, const std::vector<ComparedFigure>& figures) {
  std::string text;
  for (std::size_t check = 1; check < titles.size(); ++check) {
    if (!text.empty()) text += ' ';
    text += ofCheck(titles, figures, check);
  }
  return text;
}

}  // namespace polarline
