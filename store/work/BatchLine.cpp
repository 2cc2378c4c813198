#include <array>
#include <cstddef>
#include <string>

#include "check/document/JsonText.h"
#include "check/document/ToolPart.h"
#include "polarline/batch.h"

namespace polarline {

std::string batchLine(const BatchResult& result) {
  static constexpr std::array kStates = {"judged", "there", "duplicate", "not written", "refused"};
  static constexpr std::array kVerdicts = {"pass", "fail", "error"};
  JsonText json(JsonText::Form::kShort);
  json.object().member("schema", "polarline-batch/1").member("set", result.set);
  json.member("state", kStates.at(static_cast<std::size_t>(result.state)));
  json.member("verdict", kVerdicts.at(static_cast<std::size_t>(result.verdict)));
  json.member("exit_code", result.exit_code).member("retry", result.retry).member("id", result.id);
  json.member("document", result.document).member("seconds", result.seconds).member("text", result.text).end();
  return json.take();
}

std::string batchJson(const BatchOutcome& outcome) {
  JsonText json;
  json.object().member("schema", "polarline-batch-outcome/1");
  writeTool(json);
  json.member("sets", outcome.sets).member("judged", outcome.judged);
  json.member("there", outcome.there).member("failed", outcome.failed);
  json.member("exit_code", outcome.exit_code).end();
  return json.take() + "\n";
}

}  // namespace polarline
