#include "tools/scene/JsonDocument.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include "polarline/errors.h"

namespace scene {
namespace {

using Json = nlohmann::ordered_json;

/// The keys that lead to where the parser is, and those that each open object has so far.
class Keys {
 public:
  void open() { objects_.emplace_back(); }
  void close() { objects_.pop_back(); }
  /// Whether the innermost object has not had it yet.
  bool enter(const std::string& key) {
    objects_.back().last = key;
    return objects_.back().all.insert(key).second;
  }
  std::string path() const {
    std::string path;
    for (const Object& object : objects_) {
      if (!object.last.empty()) path += (path.empty() ? "" : ".") + object.last;
    }
    return path;
  }

 private:
  struct Object {
    std::string last;
    std::set<std::string> all;
  };
  std::vector<Object> objects_;
};

/// What the parser expected, in its words and in ours; before it stands what was "unexpected".
constexpr std::array<std::pair<std::string_view, const char*>, 5> kWanted = {{
    {"; expected string literal", "a key in double quotes"},
    {"; expected ':'", "':' and a value behind the key"},
    {"; expected '}'", "',' or '}'"},
    {"; expected ']'", "',' or ']'"},
    {"; expected end of input", "nothing more"},
}};

std::string wantedOf(std::string_view parser_words) {
  for (const auto& [theirs, ours] : kWanted) {
    if (parser_words.find(theirs) != std::string_view::npos) return ours;
  }
  return "a value in JSON";
}

std::string foundAt(const std::string& text, std::size_t at) {
  if (at >= text.size()) return "the end of the file";
  const char c = text[at];
  return c > ' ' && c < '\x7F' ? fmt::format("'{}'", c) : fmt::format("the byte {}", static_cast<unsigned char>(c));
}

[[noreturn]] void refuse(const std::string& text, const std::string& file, const std::string& behind,
                         const nlohmann::json::parse_error& error) {
  const std::size_t at = error.byte == 0 ? 0 : error.byte - 1;
  const std::string before = text.substr(0, at);
  const std::size_t line_begin = before.rfind('\n') + 1;  // 0 where there is none.
  const std::string place =
      fmt::format("{}, line {}, column {}{}", file, std::ranges::count(before, '\n') + 1,
                  before.size() - line_begin + 1, behind.empty() ? "" : ", behind the key " + behind);
  throw polarline::InputError(place, fmt::format("found {}, wanted {}", foundAt(text, at), wantedOf(error.what())));
}

}  // namespace

Json jsonDocument(const std::string& text, const std::string& file) {
  Keys keys;
  const Json::parser_callback_t follow = [&](int /*depth*/, Json::parse_event_t event, Json& value) {
    if (event == Json::parse_event_t::object_start) keys.open();
    if (event == Json::parse_event_t::object_end) keys.close();
    // Of two members of the same name JSON readers take the last: here that is a mistake.
    if (event == Json::parse_event_t::key && !keys.enter(value.get<std::string>()))
      throw polarline::InputError(file + ": " + keys.path(), "found twice in an object, wanted once");
    return true;
  };
  try {
    return Json::parse(text, follow);
  } catch (const nlohmann::json::parse_error& error) {
    refuse(text, file, keys.path(), error);
  } catch (const nlohmann::json::out_of_range&) {
    throw polarline::InputError(file + ": " + keys.path(),
                                "found a number beyond all that a double holds, wanted less");
  }
}

}  // namespace scene
