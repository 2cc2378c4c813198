#include <string>

#include "check/document/JsonText.h"
#include "check/document/ToolPart.h"
#include "polarline/report.h"

namespace polarline {

std::string reportJson(const ReportResult& result) {
  JsonText json;
  json.object().member("schema", "polarline-report/1");
  writeTool(json);
  json.member("page", result.page).member("bytes", result.bytes);
  json.list("worst", result.worst).list("without_page", result.without_page);
  json.list("warnings", result.warnings).end();
  return json.take() + "\n";
}

}  // namespace polarline
