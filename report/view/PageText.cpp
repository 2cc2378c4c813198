#include "report/view/PageText.h"

#include "check/document/JsonText.h"
#include "report/view/NameTexts.h"

namespace polarline {

std::string pageText(const std::vector<CheckView>& views, const std::string& made) {
  JsonText json(JsonText::Form::kShort);
  json.object().member("schema", "polarline-page/1").member("made", made);
  json.key("tool").object().member("name", "polarline").member("version", PLP_VERSION);
  json.member("library", "PolarLinePrecision " PLP_VERSION).end();
  json.key("explanations").raw(nameTexts());
  json.key("checks").array();
  for (const CheckView& view : views) json.raw(view.data);
  json.end().key("comparison").null();
  return json.end().take();
}

}  // namespace polarline
