#include "tools/polarline/CheckTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace command {
namespace {

using polarline::Check;
using polarline::Figure;
using polarline::LimitResult;
using polarline::PairCheck;

constexpr const char* kRed = "31";
constexpr const char* kGreen = "32";
constexpr const char* kBold = "1";

constexpr std::size_t kIndexWidth = 5;
constexpr std::size_t kStateWidth = 10;
constexpr std::size_t kFigureWidth = 12;

/// In the order in which one wants to see them.
constexpr std::array kMainFigures = {"dy_means", "dy_max",  "tri_rms", "dis_rms",     "space_rms",
                                     "gt_rms",   "tri_max", "nor_rms", "icp_nor_rms", "allpoints_means"};

std::string shown(double value) {
  return value != 0.0 && (std::abs(value) < 1e-4 || std::abs(value) >= 1e6) ? fmt::format("{:.3g}", value)
                                                                            : fmt::format("{:.4f}", value);
}

/// Of a list the value that tells most.
double farthest(const std::vector<double>& values) {
  return *std::ranges::max_element(values, {}, [](double value) { return std::abs(value); });
}

/// Lines of at most `width` columns, broken at blanks, the later ones moved in.
std::string wrapped(const std::string& text, std::size_t width, std::size_t indent) {
  std::string lines;
  std::string line(std::min(text.find_first_not_of(' '), text.size()), ' ');  // The first line keeps its own indent.
  std::size_t begin = line.size();
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    const std::string word = text.substr(begin, end - begin);
    const bool has_words = line.find_first_not_of(' ') != std::string::npos;
    if (has_words && line.size() + 1 + word.size() > width) {
      lines += line + "\n";
      line = std::string(indent, ' ') + word;
    } else {
      line += (has_words ? " " : "") + word;
    }
    begin = end + 1;
  }
  return lines + line + "\n";
}

/// Without the last one, which stands where a mark would.
std::string withoutBlanks(std::string text) {
  if (text.ends_with(' ')) text.pop_back();
  return text;
}

using Summaries = std::vector<polarline::FigureSummary>;

const polarline::FigureSummary* named(const Summaries& summaries, const std::string& name) {
  const auto found = std::ranges::find(summaries, name, &polarline::FigureSummary::name);
  return found == summaries.end() ? nullptr : &*found;
}

std::string worstPair(const Check& check) {
  for (const char* name : kMainFigures) {
    const auto* const summary = named(check.summary, name);
    if (summary == nullptr) continue;
    const std::string worst = shown(std::max(std::abs(summary->min), std::abs(summary->max)));
    const std::string mean = summary->count == 1 ? ""
                                                 : fmt::format("; mean over {} pairs {} {}", summary->count,
                                                               shown(summary->mean), summary->unit);
    return fmt::format("Worst pair: {} ({} {} {}){}.", summary->worst_pair, name, worst, summary->unit, mean);
  }
  return {};
}

/// What the refined centres make of the figure that the worst pair is told by.
std::string refinedWorst(const Check& check) {
  if (!check.refined_summary) return {};
  for (const char* name : kMainFigures) {
    if (named(check.summary, name) == nullptr) continue;
    const auto* const refined = named(*check.refined_summary, name);
    if (refined == nullptr) return {};
    const std::string worst = shown(std::max(std::abs(refined->min), std::abs(refined->max)));
    return fmt::format("From refined centres: {} {} {} in pair {}{}.", name, worst, refined->unit, refined->worst_pair,
                       refined->count == 1 ? "" : fmt::format(", mean {} {}", shown(refined->mean), refined->unit));
  }
  return {};
}

/// The text with a full stop.
std::string sentence(const std::string& text) {
  return text.empty() || text.ends_with('.') || text.ends_with('?') ? text : text + ".";
}

/// "1 limit", "2 limits".
std::string counted(std::size_t count, const char* noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

std::string passText(const Check& check) {
  const std::size_t given_up = check.pairs.size() - check.finished();
  const std::string but = given_up == 0 ? "."
                                        : fmt::format(", but {} given up and not judged.",
                                                      counted(given_up, "pair") + (given_up == 1 ? " was" : " were"));
  if (check.limits.empty()) return "No limits were given: there are figures, and nothing was judged.";
  const std::string hold =
      check.limits.size() == 1 ? "the limit holds" : fmt::format("all {} limits hold", check.limits.size());
  return "PASS: " + hold + but;
}

std::string failText(const Check& check) {
  const auto failed = static_cast<std::size_t>(std::ranges::count(check.limits, false, &LimitResult::holds));
  if (check.limits.size() == 1) return "FAIL: the limit does not hold.";
  return fmt::format("FAIL: {} of {} limits do not hold.", failed, check.limits.size());
}

std::string verdictText(const Check& check) {
  switch (check.verdict) {
    case polarline::Verdict::kPass:
      return passText(check);
    case polarline::Verdict::kFail:
      return failText(check);
    case polarline::Verdict::kError:
      return fmt::format("ERROR: {}", check.status.text);
  }
  return {};
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
  for (const char* name : kMainFigures) {
    const Figure* const figure = pair.figure(name);
    if (figure != nullptr && figure->is_own && !figure->is_list) add(name);
  }
}

std::string CheckTable::cell(const Figure* figure) const {
  const bool exceeds = figure != nullptr && figure->exceeds;
  const std::string text =
      (figure == nullptr || figure->values.empty() ? "-" : shown(farthest(figure->values))) + (exceeds ? "!" : " ");
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
    text = headings();
  }
  text +=
      fmt::format("{:>{}} {:<{}}", pair.index, kIndexWidth - 1, pair.finished ? "finished" : "given up", kStateWidth);
  if (!pair.finished) {
    const std::string where = pair.reason.step.empty() ? "" : " (" + pair.reason.step + ")";
    return coloured(wrapped(text + pair.reason.text + where, width_, kIndexWidth + 2), kRed);
  }
  for (const std::string& name : columns_) text += cell(pair.figure(name));
  return withoutBlanks(text) + "\n" + (pair.refined ? refinedRow(*pair.refined) : "");
}

std::string CheckTable::conclusion(const Check& check) const {
  std::string text = "\n";
  if (!check.pairs.empty()) {
    text +=
        wrapped(fmt::format("{} of {} finished.", check.finished(), counted(check.pairs.size(), "pair")), width_, 2);
    if (check.finished() > 0) text += wrapped(worstPair(check), width_, 2);
    if (const std::string refined = refinedWorst(check); !refined.empty()) text += wrapped(refined, width_, 2);
  }
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
