#include "report/view/PageText.h"

#include <fmt/format.h>

#include <cmath>
#include <set>

#include "check/document/JsonText.h"
#include "check/document/ToolPart.h"
#include "report/measure/Comparing.h"
#include "report/view/NameTexts.h"
#include "report/words/ComparisonWords.h"

namespace polarline {
namespace {

const char* wordOf(Difference::Judged judged) {
  switch (judged) {
    case Difference::Judged::kMore:
      return "more";
    case Difference::Judged::kLess:
      return "less";
    case Difference::Judged::kNone:
      return "none";
    case Difference::Judged::kUnknown:
      return "unknown";
  }
  return "unknown";
}

void writeFigure(JsonText& json, const ComparedFigure& figure) {
  json.object().member("figure", figure.name).member("unit", figure.unit);
  json.list("mean", figure.mean).list("low95", figure.low95).list("high95", figure.high95);
  json.key("difference").array();
  for (const Difference& each : figure.differences) {
    json.object().member("value", each.value).member("sd", each.sd).member("judged", wordOf(each.judged));
    json.member("basis", each.basis == Difference::Basis::kDots ? "dots" : "pairs").end();
  }
  json.end().end();
}

void writeLimit(JsonText& json, const ComparedLimit& limit) {
  json.object().member("text", limit.text).key("values").array();
  for (const LimitResult* each : limit.results) json.value(each != nullptr && each->value ? *each->value : NAN);
  json.end().key("holds").array();
  for (const LimitResult* each : limit.results) {
    if (each == nullptr) {
      json.null();
    } else {
      json.value(each->holds);
    }
  }
  json.end().end();
}

/// Which checks have no map of row differences among those of the others, and why; a sentence a check.
std::string mapsText(const std::vector<CheckView>& views) {
  std::string text;
  for (std::size_t k = 0; k < views.size(); ++k) {
    const char* why = nullptr;
    switch (views[k].row_map) {
      case RowMap::kThere:
        continue;
      case RowMap::kNoPair:
        why = "no pair was finished.";
        break;
      case RowMap::kNoRows:
        why = "its worst pair has no row differences.";
        break;
      case RowMap::kLeftOut:
        why = "its dots were left out to keep the file small; polarline report --budget takes more.";
        break;
    }
    text += fmt::format("{}There is no map of check {}, {}: {}", text.empty() ? "" : " ", k + 1, views[k].title, why);
  }
  return text;
}

void writeComparison(JsonText& json, const std::vector<CheckView>& views) {
  std::vector<const Check*> checks;
  std::vector<std::string> titles;
  for (const CheckView& view : views) {
    checks.push_back(&view.record);
    titles.push_back(view.title);
  }
  std::vector<std::string> inputs;
  inputs.reserve(checks.size());
  for (const Check* check : checks) inputs.push_back(inputsWords(*checks.front(), *check));
  const std::vector<ComparedFigure> figures = compareFigures(checks);
  json.object().member("text", comparisonWords(titles, figures, inputs));
  json.member("maps_text", mapsText(views)).key("limits").array();
  for (const ComparedLimit& limit : compareLimits(checks)) writeLimit(json, limit);
  json.end().key("figures").array();
  for (const ComparedFigure& figure : figures) writeFigure(json, figure);
  json.end().end();
}

}  // namespace

std::string pageText(std::vector<CheckView> views, const std::string& made, const std::string& command) {
  JsonText json(JsonText::Form::kShort);
  json.object().member("schema", "polarline-page/1").member("made", made).member("command", command);
  writeToolAndLibrary(json);
  std::set<std::string> names;
  for (const CheckView& view : views) names.insert(view.names.begin(), view.names.end());
  json.key("explanations").raw(nameTexts(names));
  json.key("checks").array();
  for (CheckView& view : views) {
    json.raw(view.data);
    std::string().swap(view.data);  // It is most of the page.
  }
  json.end().key("comparison");
  if (views.size() > 1) {
    writeComparison(json, views);
  } else {
    json.null();
  }
  return json.end().take();
}

}  // namespace polarline
