#include "report/view/NameTexts.h"

#include <algorithm>

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

template <typename IsWanted>
std::string textsOf(IsWanted is_wanted) {
  JsonText json(JsonText::Form::kShort);
  json.object();
  std::set<std::string> told;
  for (const Explanation& each : explanations()) {
    if (each.code.empty() || each.code.find_first_not_of("-0123456789") == std::string::npos) continue;
    if (!is_wanted(each.code) || !told.insert(each.code).second) continue;
    json.key(each.code).object().member("title", isFigure(each) ? each.name : titleOf(each.name));
    json.member("text", each.advice.empty() ? each.meaning : each.meaning + " " + each.advice);
    json.member("unit", unitOf(each.code)).end();
  }
  return json.end().take();
}

void addKeys(std::set<std::string>& names, const Json& object) {
  if (!object.is_object()) return;
  for (const auto& member : object.items()) names.insert(member.key());
}

/// The words of a limit: "|tri_dis[0]|<=0.5" has "tri_dis".
void addWords(std::set<std::string>& names, const std::string& limit) {
  const auto is_letter = [](char c) { return c == '_' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
  for (auto begin = limit.begin(); begin != limit.end();) {
    begin = std::find_if(begin, limit.end(), is_letter);
    const auto end = std::find_if_not(begin, limit.end(), is_letter);
    if (begin != end) names.insert(std::string(begin, end));
    begin = end;
  }
}

}  // namespace

std::set<std::string> namesIn(const Json& document) {
  std::set<std::string> names;
  for (const Json& pair : document["pairs"]) {
    addKeys(names, pair["figures"]);
    if (pair.contains("refined") && pair["refined"].is_object())
      addKeys(names, pair["refined"].value("figures", Json()));
  }
  addKeys(names, document["summary"]["figures"]);
  for (const Json& limit : document["limits"]) addWords(names, limit["text"].get_ref<const std::string&>());
  for (const Json& warning : document["warnings"]) names.insert(warning["code"].get<std::string>());
  const Json diagnosis = document.value("diagnosis", Json());
  if (!diagnosis.is_object()) return names;
  for (const Json& cause : diagnosis["causes"]) names.insert(cause["name"].get<std::string>());
  return names;
}

std::string nameTexts() {
  return textsOf([](const std::string&) { return true; });
}

std::string nameTexts(const std::set<std::string>& names) {
  return textsOf([&names](const std::string& name) { return names.contains(name); });
}

}  // namespace polarline
