#include "report/words/CheckRecord.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "polarline/explain.h"

namespace polarline {
namespace {

double numberAt(const Json& object, const char* key) {
  const auto found = object.find(key);
  return found != object.end() ? numberOf(*found) : std::nan("");
}

/// -1 for what is no index.
int indexOf(const Json& object, const char* key) {
  const double index = numberAt(object, key);
  return index >= 0.0 && index <= INT32_MAX ? static_cast<int>(index) : -1;
}

/// "tri_dis" and 3 of "tri_dis[3]".
struct EntryName {
  std::string figure;
  std::optional<std::size_t> entry;
};

EntryName entryName(const std::string& name) {
  const std::size_t bracket = name.find('[');
  if (bracket == std::string::npos) return {name, std::nullopt};
  return {name.substr(0, bracket), std::strtoul(name.c_str() + bracket + 1, nullptr, 10)};
}

bool hasMeasured(const Json& figures, const EntryName& name) {
  const auto found = figures.find(name.figure);
  if (found == figures.end()) return false;
  if (!name.entry) return found->is_number();
  return found->is_array() && *name.entry < found->size() && (*found)[*name.entry].is_number();
}

/// Pairs that measured the figure.
std::size_t countOf(const Json& document, const std::string& name, bool of_refined) {
  const EntryName entry = entryName(name);
  std::size_t count = 0;
  for (const Json& pair : document["pairs"]) {
    if (pair["state"] != "finished") continue;
    if (of_refined && !(pair.contains("refined") && pair["refined"].is_object())) continue;
    if (hasMeasured((of_refined ? pair["refined"] : pair)["figures"], entry)) ++count;
  }
  return count;
}

std::vector<FigureSummary> summariesOf(const Json& document, const Json& figures, bool of_refined) {
  std::vector<FigureSummary> summaries;
  for (const auto& [name, each] : figures.items()) {
    FigureSummary summary;
    summary.name = name;
    summary.unit = unitOf(name);
    summary.count = countOf(document, name, of_refined);
    summary.mean = numberAt(each, "mean");
    summary.sd = numberAt(each, "sd");
    summary.min = numberAt(each, "min");
    summary.max = numberAt(each, "max");
    const int worst = indexOf(each, "worst_pair");
    summary.worst_pair = worst < 0 ? 0 : static_cast<std::size_t>(worst);
    summary.sd_mean = numberAt(each, "sd_mean");
    summary.low95 = numberAt(each, "low95");
    summary.high95 = numberAt(each, "high95");
    summaries.push_back(summary);
  }
  return summaries;
}

std::vector<FigureUncertainty> uncertaintyOf(const Json& figures) {
  std::vector<FigureUncertainty> all;
  const auto uncertainty = figures.find("uncertainty");
  if (uncertainty == figures.end() || !uncertainty->is_object()) return all;
  for (const auto& [name, each] : uncertainty->items())
    all.push_back({name, numberAt(each, "sd"), numberAt(each, "low95"), numberAt(each, "high95")});
  return all;
}

PairCheck pairOf(const Json& json) {
  PairCheck pair;
  pair.index = json["index"].get<std::size_t>();
  pair.finished = json["state"] == "finished";
  pair.uncertainty = uncertaintyOf(json);
  const auto reason = json.find("reason");
  if (reason != json.end() && reason->is_object()) {
    const double code = numberAt(*reason, "code");
    if (std::abs(code) <= INT32_MAX) pair.reason.code = static_cast<std::int32_t>(code);
    pair.reason.side = (*reason)["side"].get<std::string>();
  }
  const auto refined = json.find("refined");
  if (refined != json.end() && refined->is_object()) pair.refined.emplace().uncertainty = uncertaintyOf(*refined);
  return pair;
}

/// As far as `fisheyeText` asks.
Cameras camerasOf(const Json& json) {
  Cameras cameras;
  const double type = numberAt(json, "type");
  if (std::abs(type) <= INT32_MAX) cameras.type = static_cast<int>(type);
  if (json.contains("extrinsics") && json["extrinsics"].is_object()) {
    for (const auto& [name, each] : json["extrinsics"].items()) cameras.extrinsics.push_back(numberOf(each));
  }
  return cameras;
}

Verdict verdictOf(const Json& document) {
  if (document["verdict"] == "pass") return Verdict::kPass;
  return document["verdict"] == "fail" ? Verdict::kFail : Verdict::kError;
}

}  // namespace

std::string unitOf(const std::string& figure) {
  const auto explained = explain(entryName(figure).figure);
  if (!explained || explained->unit == "1") return {};
  if (explained->unit == "deg") return "degrees";
  if (explained->unit == "px") return "pixels";
  return explained->unit;
}

Check checkRecord(const Json& document) {
  Check check;
  check.name = document["set"]["name"].get<std::string>();
  for (const Json& input : document["set"]["inputs"]) {
    check.inputs.push_back(
        {input["role"].get<std::string>(), input["path"].get<std::string>(), input["sha256"].get<std::string>()});
  }
  check.verdict = verdictOf(document);
  check.status.name = document["status"]["name"].get<std::string>();
  check.status.text = document["status"]["text"].get<std::string>();
  check.status.advice = document["status"]["advice"].get<std::string>();
  check.cameras = camerasOf(document["cameras"]);
  if (document.contains("diagnosis") && document["diagnosis"].is_object()) {
    check.diagnosis.emplace();
    check.diagnosis->text = document["diagnosis"]["text"].get<std::string>();
  }
  for (const Json& pair : document["pairs"]) check.pairs.push_back(pairOf(pair));
  const Json& summary = document["summary"];
  check.summary = summariesOf(document, summary["figures"], false);
  if (summary.contains("refined") && summary["refined"].is_object())
    check.refined_summary = summariesOf(document, summary["refined"]["figures"], true);
  for (const Json& limit : document["limits"]) {
    LimitResult result;
    result.text = limit["text"].get<std::string>();
    result.holds = limit["holds"].get<bool>();
    result.why = limit["why"].get<std::string>();
    if (limit["value"].is_number()) result.value = limit["value"].get<double>();
    check.limits.push_back(result);
  }
  for (const Json& warning : document["warnings"]) {
    check.warnings.push_back({warning["code"].get<std::string>(), warning["text"].get<std::string>(),
                              warning["advice"].get<std::string>(), indexOf(warning, "pair")});
  }
  return check;
}

}  // namespace polarline
