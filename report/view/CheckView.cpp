#include "report/view/CheckView.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>

#include "check/document/JsonText.h"
#include "report/measure/CausePattern.h"
#include "report/measure/Coverage.h"
#include "report/measure/Crop.h"
#include "report/read/ShortPaths.h"
#include "report/view/DetailOrder.h"
#include "report/view/DetailsText.h"
#include "report/view/NameTexts.h"
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

bool isAnyNumber(const std::vector<double>& values) {
  return std::ranges::any_of(values, [](double value) { return std::isfinite(value); });
}

/// Places in the pictures that are there: those of a pair that was rectified elsewhere are the rectified ones.
bool addPlaces(const DotLists& dots, Coverage& left, Coverage& right) {
  if (isAnyNumber(dots.left_x)) {
    left.add(dots.left_x, dots.left_y);
    right.add(dots.right_x, dots.right_y);
    return true;
  }
  left.add(dots.rectified_left_x, dots.rectified_left_y);
  right.add(dots.rectified_right_x, dots.rectified_right_y);
  return isAnyNumber(dots.rectified_left_x);
}

void writeCoverage(JsonText& json, const ReadCheck& check) {
  const cv::Size size = partLookedAt(check.json).size();
  Coverage left(size);
  Coverage right(size);
  std::size_t pairs = 0;
  for (std::size_t place = 0; place < check.pairs.size(); ++place) {
    if (isFinished(check.json["pairs"][place])) pairs += addPlaces(check.pairs[place].points, left, right) ? 1 : 0;
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
  bool is_first_bare = false;        ///< The pair to begin with has dots, and only for want of room no pictures.
};

/// What the details of a check are made of.
struct DetailSource {
  const ReadCheck& check;
  const CheckSources& sources;
  const CausePattern& pattern;

  std::string textOf(std::size_t place, const PairPictures& shown) const {
    return detailsText(check.pairs[place], isFinished(check.json["pairs"][place]), shown, sources.board, pattern);
  }
};

/// @param order The pair to begin with first: its dots come before the tables, as a comparison has no maps without.
/// @param used  Bytes of the tables.
Details detailsOf(const DetailSource& source, const std::vector<std::size_t>& order, std::size_t used,
                  std::size_t budget) {
  Details details;
  details.texts.resize(order.size());
  for (const std::size_t place : order) {
    PairPictures shown = source.sources.pictures(place);
    const bool is_seen = shown.left && shown.right;
    std::string text = source.textOf(place, shown);
    used += text.size();
    const bool is_room = used <= budget;
    if (!is_room) {
      if (place != order.front() || !isFinished(source.check.json["pairs"][place])) break;
      text = source.textOf(place, {});
      if (text.size() > budget) break;
      details.is_first_bare = is_seen;
    }
    details.texts[place] = std::move(text);
    details.without_pictures += is_seen ? 0 : 1;
    if (!is_room) break;
  }
  return details;
}

std::string countOfPairs(std::size_t some, std::size_t all) {
  if (some < all) return fmt::format("{} of {} pairs", some, all);
  return all == 1 ? "the only pair" : fmt::format("all {} pairs", all);
}

std::string budgetText(std::size_t left_out, std::size_t pairs, bool is_first_bare) {
  if (left_out == 0 && !is_first_bare) return {};
  const char* rest = left_out < pairs ? "; those of the worst pairs are there, and others evenly over the list" : "";
  if (is_first_bare) rest = "; the dots of the worst pair are there, without its pictures";
  const std::string what = left_out == 0 ? "Pictures of the only pair were left out to keep the file small"
                                         : fmt::format("Dots and pictures of {} were left out to keep the file small{}",
                                                       countOfPairs(left_out, pairs), rest);
  return what + ". polarline report --budget takes more.";
}

std::string leftOutText(const Details& details) {
  const auto left_out = static_cast<std::size_t>(std::ranges::count(details.texts, std::string()));
  std::string text = budgetText(left_out, details.texts.size(), details.is_first_bare);
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

/// The pair to begin with, then those that the page should have before others.
std::vector<std::size_t> orderOf(const Json& pairs, const std::string& figure, std::optional<std::size_t> first) {
  std::vector<std::size_t> order = detailOrder(pairs, figure);
  const auto found = first ? std::ranges::find(order, *first) : order.end();
  if (found != order.end()) std::rotate(order.begin(), found, found + 1);
  return order;
}

RowMap rowMapOf(const ReadCheck& check, std::optional<std::size_t> first, const Details& details) {
  if (!first || !isFinished(check.json["pairs"][*first])) return RowMap::kNoPair;
  if (!isAnyNumber(check.pairs[*first].points.dy)) return RowMap::kNoRows;
  return details.texts[*first].empty() ? RowMap::kLeftOut : RowMap::kThere;
}

void shortenWords(ReadCheck& check, const std::vector<std::string>& known_paths) {
  shortenPaths(check.json, known_paths);
  Json& advice = check.json["status"]["advice"];
  advice = inSetFolder(advice.get<std::string>(), true);
}

}  // namespace

CheckView viewCheck(ReadCheck check, const CheckSources& sources, const ViewOptions& options) {
  if (!options.paths) shortenWords(check, options.known_paths);
  CheckView view;
  view.title = options.title;
  view.record = checkRecord(check.json);
  view.names = namesIn(check.json);
  view.headline = verdictText(view.record);
  const std::vector<std::string> names = mainOnes(view.record);
  const std::string document = check.json.dump(-1, ' ', false, Json::error_handler_t::replace);
  JsonText json(JsonText::Form::kShort);
  json.object();
  writeWords(json, view, names);
  writeGivenUp(json, view.record, !options.paths);
  writeEnding(json, sources.pictures(check.json["pairs"].size()));
  json.key("document").raw(document);
  const CausePattern pattern(check.json, sources.cameras);
  json.member("pattern_unknown", pattern.whyUnknown());
  const auto first = firstPair(view.record, names);
  const auto order = orderOf(check.json["pairs"], names.empty() ? "" : names.front(), first);
  Details details = detailsOf({check, sources, pattern}, order, document.size(), options.budget);
  view.row_map = rowMapOf(check, first, details);
  writeDetails(json, std::move(details));
  writeCoverage(json, check);
  view.data = json.end().take();
  return view;
}

}  // namespace polarline
