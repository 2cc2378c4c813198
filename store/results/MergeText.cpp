#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <string>

#include "polarline/store.h"

namespace polarline {
namespace {

std::string counted(std::size_t count, const char* what) {
  return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

}  // namespace

std::string mergeText(const MergeResult& result) {
  std::string text = fmt::format("{}: {} added, {} replaced, {} unchanged", counted(result.documents, "document"),
                                 result.added, result.replaced, result.unchanged);
  if (result.renewed > 0) text += fmt::format(", {} with other metadata", result.renewed);
  if (result.elsewhere > 0) text += fmt::format(", {} of which another store has a later one", result.elsewhere);
  text += fmt::format("\nThe results have {}.\n", counted(result.sets, "set"));
  if (!result.unreadable.empty()) {
    text += fmt::format("{} could not be read and {} told in the table quarantine.\n",
                        counted(result.unreadable.size(), "file"), result.unreadable.size() == 1 ? "is" : "are");
  }
  return text;
}

std::string mergeJson(const MergeResult& result) {
  nlohmann::ordered_json json;
  json["schema"] = "polarline-merge/1";
  json["tool"] = {{"name", "polarline"}, {"version", PLP_VERSION}};
  json["documents"] = result.documents;
  json["added"] = result.added;
  json["replaced"] = result.replaced;
  json["renewed"] = result.renewed;
  json["elsewhere"] = result.elsewhere;
  json["unchanged"] = result.unchanged;
  json["sets"] = result.sets;
  json["unreadable"] = nlohmann::ordered_json::array();
  for (const UnreadableDocument& each : result.unreadable)
    json["unreadable"].push_back({{"path", each.path}, {"reason", each.reason}});
  return json.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace polarline
