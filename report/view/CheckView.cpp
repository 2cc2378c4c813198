#include "report/view/CheckView.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

#include "check/document/JsonText.h"
#include "report/measure/CausePattern.h"
#include "report/measure/Coverage.h"
#include "report/measure/Crop.h"
#include "report/read/ShortPaths.h"
#include "report/view/DetailOrder.h"
#include "report/view/DetailsText.h"
#include "report/words/CheckRecord.h"
#include "report/words/GivenUpAdvice.h"

namespace polarline {
namespace {

/// The figures that say most of a pair, of those that the pairs measured.
std::vector<std::string> mainOnes(const Check& record) {
  std::vector<std::string> names;
  for (const std::string& name : mainFigures()) {
    if (std::ranges::count(record.summary, name, &FigureSummary::name) > 0) names.push_back(name);
  }
  return names;
}

bool isFinished(const Json& pair) { return pair["state"] == "finished"; }

/// The worst by the figure, else the first finished, else the first.
std::optional<std::size_t> firstPair(const Check& record, const std::vector<std::string>& names) {
  if (record.pairs.empty()) return std::nullopt;
  const auto begin = record.pairs.begin();
  if (!names.empty()) {
    const std::size_t worst = std::ranges::find(record.summary, names.front(), &FigureSummary::name)->worst_pair;
    const auto found = std::ranges::find(record.pairs, worst, &PairCheck::index);
    if (found != record.pairs.end()) return static_cast<std::size_t>(found - begin);
  }
  const auto finished = std::ranges::find(record.pairs, true, &PairCheck::finished);
  return finished == record.pairs.end() ? 0 : static_cast<std::size_t>(finished - begin);
}

void writeGrid(JsonText& json, const char* name, const Coverage& coverage) {
  json.key(name).object().member("columns", coverage.columns()).member("rows", coverage.rows());
  json.list("dots", coverage.dots()).end();
}

void writeCoverage(JsonText& json, const ReadCheck& check) {
  const cv::Size size = partLookedAt(check.json).size();
  Coverage left(size);
  Coverage right(size);
  std::size_t pairs = 0;
  for (std::size_t place = 0; place < check.pairs.size(); ++place) {
    if (!isFinished(check.json["pairs"][place])) continue;
    const DotLists& dots = check.pairs[place].points;
    left.add(dots.left_x, dots.left_y);
    right.add(dots.right_x, dots.right_y);
    pairs += dots.id.empty() ? 0 : 1;
  }
  json.key("coverage");
  if (pairs == 0 || size.empty()) {
    json.null();
    return;
  }
  json.object();
  writeGrid(json, "left", left);
  writeGrid(json, "right", right);
  json.member("sentence",
              fmt::format("The dots of {} {} reach {:.0f} % of the left picture's cells and {:.0f} % of "
                          "the right one's.",
                          pairs, pairs == 1 ? "pair" : "pairs together", 100.0 * left.share(), 100.0 * right.share()));
  json.end();
}

/// The details of as many pairs as fit.
struct Details {
  std::vector<std::string> texts;    ///< Each at its pair's place; empty for one left out.
  std::size_t without_pictures = 0;  ///< Of those that are there.
};

Details detailsOf(const ReadCheck& check, const std::string& figure, const CheckSources& sources,
                  const CausePattern& pattern, std::size_t budget) {
  const Json& pairs = check.json["pairs"];
  Details details;
  details.texts.resize(pairs.size());
  std::size_t used = 0;
  for (const std::size_t place : detailOrder(pairs, figure)) {
    const PairPictures shown = sources.pictures(place);
    std::string text = detailsText(check.pairs[place], isFinished(pairs[place]), shown, sources.board, pattern);
    used += text.size();
    if (used > budget) break;
    details.texts[place] = std::move(text);
    details.without_pictures += shown.left && shown.right ? 0 : 1;
  }
  return details;
}

std::string budgetText(std::size_t left_out, std::size_t pairs) {
  if (left_out == 0) return {};
  const std::string of = left_out < pairs
                             ? fmt::format("{} of {} pairs", left_out, pairs)
                             : (pairs == 1 ? std::string("the only pair") : fmt::format("all {} pairs", pairs));
  return fmt::format(
      "Dots and pictures of {} were left out to keep the file small{}. polarline report --budget takes more.", of,
      left_out < pairs ? "; those of the worst pairs are there, and others evenly over the list" : "");
}

std::string leftOutText(const Details& details) {
  const auto left_out = static_cast<std::size_t>(std::ranges::count(details.texts, std::string()));
  std::string text = budgetText(left_out, details.texts.size());
  if (details.without_pictures > 0) {
    text += fmt::format(
        "{}Pictures of {} {} are not shown: the files are not where they were, have changed, or were "
        "not wanted.",
        text.empty() ? "" : " ", details.without_pictures, details.without_pictures == 1 ? "pair" : "pairs");
  }
  return text;
}

void writeDetails(JsonText& json, Details details) {
  const std::string left_out = leftOutText(details);
  json.key("details").array();
  for (std::string& each : details.texts) {
    json.raw(each.empty() ? "null" : each);
    std::string().swap(each);  // All of them are most of the page.
  }
  json.end();
  json.member("left_out", left_out);
}

/// An entry a pair.
void writeGivenUp(JsonText& json, const Check& record, bool without_folders) {
  json.key("given_up").array();
  for (const PairCheck& pair : record.pairs) {
    const GivenUpAdvice known = givenUpAdvice(record, pair, without_folders);
    if (known.name.empty()) {
      json.null();
      continue;
    }
    json.object().member("name", known.name).member("meaning", known.meaning).member("advice", known.advice).end();
  }
  json.end();
}

/// A run that an evaluation ended has no entry for its last pair.
void writeEnding(JsonText& json, const PairPictures& pictures) {
  json.key("ended_at");
  if (!pictures.left && !pictures.right) {
    json.null();
    return;
  }
  json.object();
  writePictures(json, pictures);
  json.end();
}

void writeWords(JsonText& json, const CheckView& view, const std::vector<std::string>& names) {
  json.member("title", view.title).member("headline", view.headline);
  json.member("finished_text", finishedText(view.record));
  json.member("worst_pair_text", worstPairText(view.record)).member("refined_text", refinedPairText(view.record));
  json.member("fisheye_text", fisheyeText(view.record));
  json.key("first_pair");
  if (const auto first = firstPair(view.record, names)) {
    json.value(*first);
  } else {
    json.null();
  }
  json.list("main_figures", names);
}

}  // namespace

CheckView viewCheck(ReadCheck check, const CheckSources& sources, const ViewOptions& options) {
  if (!options.paths) {
    shortenPaths(check.json, options.known_paths);
    Json& advice = check.json["status"]["advice"];
    advice = inSetFolder(advice.get<std::string>(), true);
  }
  CheckView view;
  view.title = options.title;
  view.record = checkRecord(check.json);
  view.headline = verdictText(view.record);
  const std::vector<std::string> names = mainOnes(view.record);
  const std::string document = check.json.dump(-1, ' ', false, Json::error_handler_t::replace);
  const std::size_t left = options.budget - std::min(options.budget, document.size());
  JsonText json(JsonText::Form::kShort);
  json.object();
  writeWords(json, view, names);
  writeGivenUp(json, view.record, !options.paths);
  writeEnding(json, sources.pictures(check.json["pairs"].size()));
  json.key("document").raw(document);
  const CausePattern pattern(check.json, sources.cameras);
  json.member("pattern_unknown", pattern.whyUnknown());
  writeDetails(json, detailsOf(check, names.empty() ? "" : names.front(), sources, pattern, left));
  writeCoverage(json, check);
  view.data = json.end().take();
  return view;
}

}  // namespace polarline
