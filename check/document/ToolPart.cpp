#include "check/document/ToolPart.h"

namespace polarline {
namespace {

JsonText& beginTool(JsonText& json) {
  return json.key("tool").object().member("name", "polarline").member("version", PLP_VERSION);
}

}  // namespace

void writeTool(JsonText& json) { beginTool(json).end(); }

void writeToolAndLibrary(JsonText& json) { beginTool(json).member("library", "PolarLinePrecision " PLP_VERSION).end(); }

}  // namespace polarline
