#include "check/document/ToolPart.h"

#include <gtest/gtest.h>

namespace {

using polarline::JsonText;

std::string written(void (*part)(JsonText&)) {
  JsonText json(JsonText::Form::kShort);
  json.object();
  part(json);
  return json.end().take();
}

TEST(ToolPart, NamesTheCommandAndItsVersion) {
  EXPECT_EQ(written(polarline::writeTool), R"({"tool":{"name":"polarline","version":"1.3.3"}})");
}

TEST(ToolPart, NamesTheLibraryWhoseFiguresADocumentHas) {
  EXPECT_EQ(written(polarline::writeToolAndLibrary),
            R"({"tool":{"name":"polarline","version":"1.3.3","library":"PolarLinePrecision 1.3.3"}})");
}

}  // namespace
