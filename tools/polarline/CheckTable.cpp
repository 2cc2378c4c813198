#include "tools/polarline/CheckTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

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

constexpr std::size_t kIndexWidth = 5;
constexpr std::size_t kStateWidth = 10;
constexpr std::size_t kFigureWidth = 12;

/// Of a list the value that tells most.
double farthest(const std::vector<double>& values) {
  return *std::ranges::max_element(values, {}, [](double value) { return std::abs(value); });
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
  return fmt::format(
      "Corrected calibration: {}; the rows should then differ by {:.3g} px in the mean, and do by {:.3g} px.",
      correction.path, correction.rows_predicted, correction.rows_seen);
}

}  // namespace

std::string CheckTable::coloured(const std::string& text, const char* code) const {
  return has_colours_ ? fmt::format("\x1b[{}m{}\x1b[0m", code, text) : text;
}

std::string CheckTable::header(const Check& check) const {
  const polarline::BoardInfo& board = check.board;
  return wrapped(fmt::format("{}: board of {} x {} dots, step {}; lens model {}", check.name, board.cols, board.rows,
                             static_cast<float>(board.step), check.cameras.model),
                 width_, 2);
}

void CheckTable::chooseColumns(const PairCheck& pair) {
  has_columns_ = true;
  const std::size_t room = (width_ - std::min(width_, kIndexWidth + kStateWidth)) / kFigureWidth;
  const auto add = [&](const std::string& name) {
    if (columns_.size() < room && std::ranges::count(columns_, name) == 0) columns_.push_back(name);
  };
  const auto addLimited = [&](const std::vector<Figure>& figures) {
    for (const Figure& figure : figures) {
      if (figure.is_limited) add(figure.name);
    }
  };
  addLimited(pair.figures);
  if (pair.refined) addLimited(pair.refined->figures);
  for (const std::string& name : polarline::mainFigures()) {
    const Figure* const figure = pair.figure(name);
    if (figure != nullptr && figure->is_own && !figure->is_list) add(name);
  }
}

std::string CheckTable::units(const PairCheck& pair) const {
  std::string text(kIndexWidth + kStateWidth, ' ');
  for (const std::string& name : columns_) {
    const Figure* const figure = pair.figure(name);
    text += fmt::format("{:>{}} ", figure == nullptr ? "" : figure->unit, kFigureWidth - 1);
  }
  text.resize(text.find_last_not_of(' ') + 1);
  return text.empty() ? text : text + "\n";
}

std::string CheckTable::cell(const Figure* figure) const {
  const bool exceeds = figure != nullptr && figure->exceeds;
  const std::string text = (figure == nullptr || figure->values.empty() ? "-" : figureText(farthest(figure->values))) +
                           (exceeds ? "!" : " ");
  const std::string padded = fmt::format("{:>{}}", text, kFigureWidth);
  return exceeds ? coloured(padded, kRed) : padded;
}

std::string CheckTable::headings() const {
  std::string text = fmt::format("{:>{}} {:<{}}", "pair", kIndexWidth - 1, "state", kStateWidth);
  for (const std::string& name : columns_)
    text += fmt::format("{:>{}} ", name.substr(0, kFigureWidth - 2), kFigureWidth - 1);
  return coloured(withoutBlanks(text), kBold) + "\n";
}

std::string CheckTable::refinedRow(const polarline::RefinedPair& refined) const {
  std::string text = fmt::format("{:>{}} {:<{}}", "", kIndexWidth - 1, "refined", kStateWidth);
  if (!refined.problem.empty()) return coloured(wrapped(text + refined.problem, width_, kIndexWidth + 2), kRed);
  for (const std::string& name : columns_) text += cell(refined.figure(name));
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
  for (const std::string& name : columns_) text += cell(pair.figure(name));
  return withoutBlanks(text) + "\n" + (pair.refined ? refinedRow(*pair.refined) : "");
}

std::string CheckTable::conclusion(const Check& check) const {
  std::string text = "\n";
  if (!check.pairs.empty()) {
    text += wrapped(finishedText(check), width_, 2);
    for (const std::string& each : givenUpTexts(check)) text += wrapped(each, width_, 2);
    if (check.finished() > 0) text += wrapped(worstPairText(check), width_, 2);
    if (const std::string refined = refinedPairText(check); !refined.empty()) text += wrapped(refined, width_, 2);
  }
  if (check.diagnosis) text += wrapped("Diagnosis: " + check.diagnosis->text, width_, 2);
  if (check.correction) text += wrapped(correctionText(*check.correction), width_, 2);
  for (const LimitResult& limit : check.limits) {
    const char* const broken = limit.value ? "EXCEEDED" : "NO VALUE";
    const std::string mark = limit.holds ? coloured("holds   ", kGreen) : coloured(broken, kRed);
    text += mark + " " + wrapped(fmt::format("{}: {}", limit.text, limit.why), width_ - 9, 4);
  }
  for (const polarline::Warning& warning : check.warnings) {
    text += wrapped("Warning: " + sentence(warning.text) + " " + warning.advice, width_, 2);
  }
  text += coloured(wrapped(verdictText(check), width_, 2), check.verdict == polarline::Verdict::kPass ? kGreen : kRed);
  if (check.verdict == polarline::Verdict::kError) text += wrapped(check.status.advice, width_, 2);
  return text;
}

}  // namespace command
