#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <string_view>
#include <utility>

#include "camera/LensModel.h"
#include "check/judge/DetectCommand.h"
#include "platform/PlainNumber.h"
#include "polarline/check.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

const FigureSummary* named(const std::vector<FigureSummary>& summaries, const std::string& name) {
  const auto found = std::ranges::find(summaries, name, &FigureSummary::name);
  return found == summaries.end() ? nullptr : &*found;
}

/// Of the first main figure that the pairs measured; null without one.
const FigureSummary* mainSummary(const Check& check) {
  for (const std::string& name : mainFigures()) {
    if (const FigureSummary* const summary = named(check.summary, name)) return summary;
  }
  return nullptr;
}

/// Below, four decimals are too few.
constexpr double kFine = 1e-4;
/// From here on decimals say nothing, and a table has no room for them.
constexpr double kWide = 1e5;
constexpr double kBeyondColumns = 1e10;

double farthest(const FigureSummary& summary) { return std::max(std::abs(summary.min), std::abs(summary.max)); }

/// The value with its standard error behind it, where there is one that is more than the rounding of sums.
std::string withError(double value, double error) {
  constexpr double kRounding = 1e-12;
  const bool is_told = std::isfinite(error) && (error == 0.0 || error > kRounding * std::abs(value));
  if (!is_told) return figureText(value);
  // No value ends before its error does.
  const double size = std::abs(value);
  const bool is_finer = error < kFine || (size >= kWide && size < kBeyondColumns);
  if (error > 0.0 && is_finer) return plain::withError(value, error);
  return fmt::format("{} ± {}", figureText(value), figureText(error));
}

double errorOf(const FigureUncertainty* uncertainty) {
  return uncertainty == nullptr ? std::numeric_limits<double>::quiet_NaN() : uncertainty->sd;
}

const PairCheck* pairAt(const Check& check, std::size_t index) {
  const auto pair = std::ranges::find(check.pairs, index, &PairCheck::index);
  return pair == check.pairs.end() ? nullptr : &*pair;
}

/// The worst pair's value with its standard error.
std::string worstText(const Check& check, const FigureSummary& summary) {
  const PairCheck* const pair = pairAt(check, summary.worst_pair);
  return withError(farthest(summary), errorOf(pair == nullptr ? nullptr : pair->uncertaintyOf(summary.name)));
}

std::string worstRefinedText(const Check& check, const FigureSummary& summary) {
  const PairCheck* const pair = pairAt(check, summary.worst_pair);
  const bool is_refined = pair != nullptr && pair->refined;
  return withError(farthest(summary), errorOf(is_refined ? pair->refined->uncertaintyOf(summary.name) : nullptr));
}

bool isEndingPair(const Check& check, const PairCheck& pair) { return &pair == endingPair(check); }

/// "1 limit", "2 limits".
std::string counted(std::size_t count, const char* noun) {
  return fmt::format("{} {}{}", count, noun, count == 1 ? "" : "s");
}

/// Warnings that make one doubt whether the figures are those of these cameras and this board.
constexpr std::array<std::string_view, 8> kDoubts = {"board_size",      "sides_exchanged", "baseline_unit",
                                                     "scale_wrong",     "board_mismatch",  "calibration_mismatch",
                                                     "pair_stands_out", "lenses_exchanged"};

std::string doubtText(const Check& check) {
  for (const Warning& warning : check.warnings) {
    if (std::ranges::count(kDoubts, warning.code) > 0) return " But see the warning " + warning.code + " first.";
  }
  return {};
}

std::string passText(const Check& check) {
  const std::size_t given_up = check.pairs.size() - check.finished();
  const std::string but = given_up == 0 ? "."
                                        : fmt::format(", but {} given up and not judged.",
                                                      counted(given_up, "pair") + (given_up == 1 ? " was" : " were"));
  if (check.limits.empty()) {
    const FigureSummary* const summary = mainSummary(check);
    return fmt::format(
        "No limits were given: there are figures, and nothing was judged. --limit '{}<=0.1' would judge one.",
        summary == nullptr ? "dy_means" : summary->name);
  }
  const std::string hold =
      check.limits.size() == 1 ? "the limit holds" : fmt::format("all {} limits hold", check.limits.size());
  return "PASS: " + hold + but + doubtText(check);
}

std::string failText(const Check& check) {
  const auto failed = static_cast<std::size_t>(std::ranges::count(check.limits, false, &LimitResult::holds));
  if (check.limits.size() == 1) return "FAIL: the limit does not hold.";
  return fmt::format("FAIL: {} of {} limits do not hold.", failed, check.limits.size());
}

}  // namespace

const std::vector<std::string>& mainFigures() {
  static const std::vector<std::string> names = {"dy_means", "dy_max",  "tri_rms", "dis_rms",     "space_rms",
                                                 "gt_rms",   "tri_max", "nor_rms", "icp_nor_rms", "allpoints_means"};
  return names;
}

std::string figureText(double value) {
  const double size = std::abs(value);
  if (size >= kBeyondColumns) return fmt::format("{:.3g}", value);
  if (size != 0.0 && size < kFine) return plain::rounded(value, 3);
  return size >= kWide ? fmt::format("{:.0f}", value) : fmt::format("{:.4f}", value);
}

std::string finishedText(const Check& check) {
  // Behind the last pair that is told the list may have had more.
  const bool is_whole = check.status.name == "success" || check.status.name == "nothing_measured";
  const char* const end = is_whole || check.finished() == 0 ? "" : ", then the run ended";
  const std::string of = check.listed > check.pairs.size() ? fmt::format(" ({} are listed)", check.listed) : "";
  return fmt::format("{} of {} finished{}{}.", check.finished(), counted(check.pairs.size(), "pair"), end, of);
}

std::string fisheyeText(const Check& check) {
  const bool are_fisheyes = lensModelOf(check.cameras.type) == LensModel::kFisheye;
  if (!are_fisheyes || check.cameras.extrinsics.empty() || check.finished() == 0) return {};
  return "Fisheye lenses: residuals, distances and the fit of the board (tri_rms, dis_rms, space_rms, gt_rms) are "
         "those "
         "of the raw pair, where the coefficients are taken for Brown's; judge by dy_means and dy_max.";
}

std::string worstPairText(const Check& check) {
  const FigureSummary* const summary = mainSummary(check);
  if (summary == nullptr) return {};
  const std::string mean = summary->count == 1 ? ""
                                               : fmt::format("; mean over {} pairs {} {}", summary->count,
                                                             withError(summary->mean, summary->sd_mean), summary->unit);
  return fmt::format("Worst pair: {} ({} {} {}){}.", summary->worst_pair, summary->name, worstText(check, *summary),
                     summary->unit, mean);
}

std::string refinedPairText(const Check& check) {
  const FigureSummary* const detected = mainSummary(check);
  if (detected == nullptr || !check.refined_summary) return {};
  const FigureSummary* const refined = named(*check.refined_summary, detected->name);
  if (refined == nullptr) return {};
  const std::string mean =
      refined->count == 1 ? "" : fmt::format(", mean {} {}", withError(refined->mean, refined->sd_mean), refined->unit);
  return fmt::format("From refined centres: {} {} {} in pair {}{}.", refined->name, worstRefinedText(check, *refined),
                     refined->unit, refined->worst_pair, mean);
}

const PairCheck* endingPair(const Check& check) {
  if (check.verdict != Verdict::kError || check.pairs.empty()) return nullptr;
  const PairCheck& last = check.pairs.back();
  const bool is_cause = !last.finished && check.status.code == last.reason.code && !last.reason.text.empty() &&
                        check.status.text.ends_with(last.reason.text);
  return is_cause ? &last : nullptr;
}

std::vector<std::string> givenUpTexts(const Check& check) {
  std::vector<const PairCheck*> firsts;  // One of each kind.
  std::map<std::pair<std::int32_t, bool>, std::size_t> counts;
  const auto kindOf = [](const PairCheck& pair) { return std::pair(pair.reason.code, pair.reason.of_residuals); };
  for (const PairCheck& pair : check.pairs) {
    if (!pair.finished && ++counts[kindOf(pair)] == 1) firsts.push_back(&pair);
  }
  std::vector<std::string> texts;
  for (const PairCheck* const pair : firsts) {
    const std::int32_t code = pair->reason.code;
    const auto explained = explainPair(code, pair->reason.of_residuals);
    // What a single pair was given up for that ended the run is the check's status and its advice.
    const bool is_told = counts[kindOf(*pair)] == 1 && isEndingPair(check, *pair);
    if (!explained || is_told) continue;
    texts.push_back(fmt::format("{} given up with {} ({}): {} {}", counted(counts[kindOf(*pair)], "pair"), code,
                                explained->name, explained->meaning, adviceOn(*pair, explained->advice, check)));
  }
  return texts;
}

std::string endingText(const Check& check) {
  const PairCheck* const pair = endingPair(check);
  if (pair == nullptr) return verdictText(check);
  return fmt::format("ERROR: pair {} ({}, {}) ended the run; why stands in its row.", pair->index, pair->left,
                     pair->right);
}

std::string verdictText(const Check& check) {
  switch (check.verdict) {
    case Verdict::kPass:
      return passText(check);
    case Verdict::kFail:
      return failText(check);
    case Verdict::kError:
      return "ERROR: " + check.status.text;
  }
  return {};
}

}  // namespace polarline
