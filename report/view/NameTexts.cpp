#include "report/view/NameTexts.h"

#include <set>

#include "check/document/JsonText.h"
#include "polarline/explain.h"
#include "report/words/CheckRecord.h"

namespace polarline {
namespace {

/// "rotation_x" -> "Rotation x".
std::string titleOf(const std::string& name) {
  std::string title = name;
  for (char& c : title) {
    if (c == '_') c = ' ';
  }
  if (!title.empty() && title[0] >= 'a' && title[0] <= 'z') title[0] = static_cast<char>(title[0] - 'a' + 'A');
  return title;
}

/// Figures bear names of the library's own, which stay as they are.
bool isFigure(const Explanation& explanation) { return explanation.meaning.starts_with("A figure"); }

}  // namespace

std::string nameTexts() {
  JsonText json(JsonText::Form::kShort);
  json.object();
  std::set<std::string> told;
  for (const Explanation& each : explanations()) {
    if (each.code.empty() || each.code.find_first_not_of("-0123456789") == std::string::npos) continue;
    if (!told.insert(each.code).second) continue;
    json.key(each.code).object().member("title", isFigure(each) ? each.name : titleOf(each.name));
    json.member("text", each.advice.empty() ? each.meaning : each.meaning + " " + each.advice);
    json.member("unit", unitOf(each.code)).end();
  }
  return json.end().take();
}

}  // namespace polarline
