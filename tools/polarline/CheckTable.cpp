#include "tools/polarline/CheckTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "tools/polarline/Terminal.h"

namespace command {
namespace {

using polarline::Check;
using polarline::Figure;
using polarline::figureText;
using polarline::LimitResult;
using polarline::PairCheck;
using terminal::wrapped;

constexpr const char* kRed = "31";
constexpr const char* kGreen = "32";
constexpr const char* kBold = "1";
constexpr const char* kExceeded = "EXCEEDED";
constexpr const char* kNoValue = "NO VALUE";

constexpr std::size_t kIndexWidth = 5;
constexpr std::size_t kStateWidth = 10;
constexpr std::size_t kLeastFigureWidth = 12;

/// Of a list the value that tells most.
double farthest(const std::vector<double>& values) {
  return *std::ranges::max_element(values, {}, [](double value) { return std::isnan(value) ? -1.0 : std::abs(value); });
}

/// Without the last one, which stands where a mark would.
std::string withoutBlanks(std::string text) {
  if (text.ends_with(' ')) text.pop_back();
  return text;
}

/// The text with a full stop.
std::string sentence(const std::string& text) {
  return text.empty() || text.ends_with('.') || text.ends_with('?') ? text : text + ".";
}

std::string correctionText(const polarline::Correction& correction) {
  return fmt::format("Corrected calibration: {}; the rows should then differ by {} px in the mean, and do by {} px.",
                     correction.path, figureText(correction.rows_predicted), figureText(correction.rows_seen));
}

}  // namespace

std::string CheckTable::Column::title() const { return entry ? fmt::format("{}[{}]", figure, *entry) : figure; }

std::size_t CheckTable::Column::width() const { return std::max(kLeastFigureWidth, title().size() + 2); }

std::string CheckTable::Column::valueOf(const Figure* of) const {
  if (of == nullptr || of->values.size() <= entry.value_or(0)) return "-";
  return figureText(entry ? of->values[*entry] : farthest(of->values));
}

bool CheckTable::Column::exceeds(const Figure& of) const {
  if (!entry) return of.exceeds;
  const auto found = std::ranges::find(of.entries, *entry, &polarline::LimitedEntry::entry);
  return found != of.entries.end() && found->exceeds;
}

std::string CheckTable::coloured(const std::string& text, const char* code) const {
  return has_colours_ ? fmt::format("\x1b[{}m{}\x1b[0m", code, text) : text;
}

std::string CheckTable::header(const Check& check) const {
  const polarline::BoardInfo& board = check.board;
  const std::string name = check.name.empty() ? "" : check.name + ": ";
  return wrapped(fmt::format("{}board of {} x {} dots, step {}; lens model {}", name, board.cols, board.rows,
                             static_cast<float>(board.step), check.cameras.model),
                 width_, 2);
}

void CheckTable::add(const Column& column) {
  const auto is_same = [&](const Column& each) { return each.title() == column.title(); };
  if (column.width() > room_ || std::ranges::any_of(columns_, is_same)) return;
  columns_.push_back(column);
  room_ -= column.width();
}

void CheckTable::chooseColumns(const PairCheck& pair) {
  has_columns_ = true;
  room_ = width_ - std::min(width_, kIndexWidth + kStateWidth);
  const auto addLimited = [&](const std::vector<Figure>& figures) {
    for (const Figure& figure : figures) {
      for (const polarline::LimitedEntry& each : figure.entries) add({figure.name, each.entry});
      if (figure.is_whole_limited) add({figure.name, std::nullopt});
    }
  };
  addLimited(pair.figures);
  if (pair.refined) addLimited(pair.refined->figures);
  for (const std::string& name : polarline::mainFigures()) {
    const Figure* const figure = pair.figure(name);
    if (figure != nullptr && figure->is_own && !figure->is_list) add({name, std::nullopt});
  }
}

std::string CheckTable::units(const PairCheck& pair) const {
  std::string text(kIndexWidth + kStateWidth, ' ');
  for (const Column& column : columns_) {
    const Figure* const figure = pair.figure(column.figure);
    text += fmt::format("{:>{}} ", figure == nullptr ? "" : figure->unit, column.width() - 1);
  }
  text.resize(text.find_last_not_of(' ') + 1);
  return text.empty() ? text : text + "\n";
}

std::string CheckTable::cell(const Column& column, const Figure* figure) const {
  const bool exceeds = figure != nullptr && column.exceeds(*figure);
  const std::string text = column.valueOf(figure) + (exceeds ? "!" : " ");
  const std::string padded = fmt::format("{:>{}}", text, column.width());
  return exceeds ? coloured(padded, kRed) : padded;
}

std::string CheckTable::headings() const {
  std::string text = fmt::format("{:>{}} {:<{}}", "pair", kIndexWidth - 1, "state", kStateWidth);
  for (const Column& column : columns_) text += fmt::format("{:>{}} ", column.title(), column.width() - 1);
  return coloured(withoutBlanks(text), kBold) + "\n";
}

std::string CheckTable::refinedRow(const polarline::RefinedPair& refined) const {
  std::string text = fmt::format("{:>{}} {:<{}}", "", kIndexWidth - 1, "refined", kStateWidth);
  if (!refined.problem.empty()) return coloured(wrapped(text + refined.problem, width_, kIndexWidth + 2), kRed);
  for (const Column& column : columns_) text += cell(column, refined.figure(column.figure));
  return withoutBlanks(text) + "\n";
}

std::string CheckTable::row(const PairCheck& pair) {
  std::string text;
  if (!has_columns_ && pair.finished) {
    chooseColumns(pair);
    text = headings() + units(pair);
  }
  text +=
      fmt::format("{:>{}} {:<{}}", pair.index, kIndexWidth - 1, pair.finished ? "finished" : "given up", kStateWidth);
  if (!pair.finished) {
    const std::string where = pair.reason.step.empty() ? "" : " (" + pair.reason.step + ")";
    const std::string why = fmt::format("{}: {}{}", pair.reason.code, pair.reason.text, where);
    return coloured(wrapped(text + why, width_, kIndexWidth + 2), kRed);
  }
  for (const Column& column : columns_) text += cell(column, pair.figure(column.figure));
  return withoutBlanks(text) + "\n" + (pair.refined ? refinedRow(*pair.refined) : "");
}

std::string CheckTable::broken(const Check& check) {
  std::string text;
  for (const LimitResult& limit : check.limits) {
    if (!limit.holds) text += fmt::format("{} {}: {}\n", limit.value ? kExceeded : kNoValue, limit.text, limit.why);
  }
  return text + verdictText(check) + "\n";
}

std::string CheckTable::conclusion(const Check& check) const {
  std::string text = "\n";
  if (!check.pairs.empty()) {
    text += wrapped(finishedText(check), width_, 2);
    for (const std::string& each : givenUpTexts(check)) text += wrapped(each, width_, 2);
    if (check.finished() > 0) text += wrapped(worstPairText(check), width_, 2);
    if (const std::string fisheye = fisheyeText(check); !fisheye.empty()) text += wrapped(fisheye, width_, 2);
    if (const std::string refined = refinedPairText(check); !refined.empty()) text += wrapped(refined, width_, 2);
  }
  if (check.diagnosis) text += wrapped("Diagnosis: " + check.diagnosis->text, width_, 2);
  if (check.correction) text += wrapped(correctionText(*check.correction), width_, 2);
  for (const LimitResult& limit : check.limits) {
    const char* const broken = limit.value ? kExceeded : kNoValue;
    const std::string mark = limit.holds ? coloured("holds   ", kGreen) : coloured(broken, kRed);
    text += mark + " " + wrapped(fmt::format("{}: {}", limit.text, limit.why), width_ - 9, 4);
  }
  for (const polarline::Warning& warning : check.warnings) {
    text += wrapped("Warning: " + sentence(warning.text) + " " + warning.advice, width_, 2);
  }
  text += coloured(wrapped(endingText(check), width_, 2), check.verdict == polarline::Verdict::kPass ? kGreen : kRed);
  const bool has_advice = check.verdict == polarline::Verdict::kError && !check.status.advice.empty();
  if (has_advice) text += wrapped(check.status.advice, width_, 2);
  return text;
}

}  // namespace command
