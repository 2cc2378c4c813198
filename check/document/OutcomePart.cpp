#include "check/document/OutcomePart.h"

#include <cstddef>
#include <vector>

#include "check/figures/Summary.h"

namespace polarline {
namespace {

const char* nameOf(Verdict verdict) {
  switch (verdict) {
    case Verdict::kPass:
      return "pass";
    case Verdict::kFail:
      return "fail";
    case Verdict::kError:
      return "error";
  }
  return "error";
}

void writeSummaries(JsonText& json, const std::vector<FigureSummary>& summaries) {
  json.key("figures").object();
  for (const FigureSummary& each : summaries) {
    json.key(each.name).object().member("mean", each.mean).member("sd", each.sd);
    json.member("min", each.min).member("max", each.max).member("worst_pair", each.worst_pair);
    json.member("sd_mean", each.sd_mean).member("low95", each.low95).member("high95", each.high95).end();
  }
  json.end();
}

void writeCause(JsonText& json, const Cause& cause) {
  json.object().member("name", cause.name).member("value", cause.value).member("sd", cause.sd);
  json.member("unit", cause.unit).member("share", cause.share).member("text", cause.text);
  if (cause.group > 0) json.member("group", cause.group);
  json.end();
}

void writeSummary(JsonText& json, const Check& check) {
  json.key("summary").object().member("pairs", check.pairs.size()).member("finished", check.finished());
  writeSummaries(json, check.summary);
  if (check.refined_summary) {
    json.key("refined").object();
    writeSummaries(json, *check.refined_summary);
    json.end();
  }
  json.end();
}

void writeLimits(JsonText& json, const std::vector<LimitResult>& limits) {
  json.key("limits").array();
  for (const LimitResult& limit : limits) {
    json.object().member("text", limit.text).key("value");
    if (limit.value) {
      json.value(*limit.value, limit.is_single);
    } else {
      json.null();
    }
    json.member("holds", limit.holds).key("pair");
    if (limit.pair >= 0) {
      json.value(limit.pair);
    } else {
      json.null();
    }
    json.member("why", limit.why).end();
  }
  json.end();
}

void writeDiagnosis(JsonText& json, const Check& check) {
  json.key("diagnosis");
  if (!check.diagnosis) {
    json.null();
    return;
  }
  const Diagnosis& diagnosis = *check.diagnosis;
  json.object().key("causes").array();
  for (const Cause& cause : diagnosis.causes) writeCause(json, cause);
  json.end().member("text", diagnosis.text).member("rows_before", diagnosis.rows_before);
  json.member("rows_after", diagnosis.rows_after).member("pattern_left", diagnosis.pattern_left);
  if (check.correction) {
    json.key("correction").object().member("path", check.correction->path);
    json.member("rows_predicted", check.correction->rows_predicted);
    json.member("rows_seen", check.correction->rows_seen).end();
  }
  json.end();
}

void writeWarnings(JsonText& json, const std::vector<Warning>& warnings) {
  json.key("warnings").array();
  for (const Warning& warning : warnings) {
    json.object().member("code", warning.code);
    if (warning.pair >= 0) json.member("pair", warning.pair);
    json.member("text", warning.text).member("advice", warning.advice).end();
  }
  json.end();
}

}  // namespace

void writeStatus(JsonText& json, const Status& status) {
  json.key("status").object().key("code");
  if (status.code) {
    json.value(*status.code);
  } else {
    json.null();
  }
  json.member("name", status.name).member("text", status.text).member("advice", status.advice);
  json.member("retry", status.retry).member("exit_code", status.exit_code).end();
}

void writeOutcome(JsonText& json, const Check& check) {
  writeSummary(json, check);
  writeLimits(json, check.limits);
  // Without limits the verdict is "pass", too: who reads it alone has to learn that it rests on none.
  json.member("judged", check.verdict == Verdict::kError ? std::size_t{0} : check.limits.size());
  json.member("verdict", nameOf(check.verdict));
  writeDiagnosis(json, check);
  writeWarnings(json, check.warnings);
}

}  // namespace polarline
