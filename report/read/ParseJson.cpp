#include "report/read/ParseJson.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "polarline/errors.h"

namespace polarline {
namespace {

constexpr std::size_t kDeepest = 32;
constexpr std::size_t kMostMembers = 4000;

/// Line and column from 1 of a byte.
std::string placeOf(std::string_view text, std::size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte, text.size()));
  const auto lines = static_cast<std::size_t>(std::ranges::count(before, '\n'));
  const std::size_t line_end = before.rfind('\n');
  const std::size_t column = line_end == std::string_view::npos ? before.size() : before.size() - line_end - 1;
  return fmt::format("line {}, column {}", lines + 1, std::max<std::size_t>(column, 1));
}

/// Walks over the brackets of a text that need not be JSON.
class Nesting {
 public:
  explicit Nesting(std::string_view text) : text_(text) {}

  /// The byte where the text gets too deep or too broad; the text's size where it does not.
  std::size_t firstFault() {
    for (std::size_t k = 0; k < text_.size(); ++k) {
      if (!take(text_[k])) return k;
    }
    return text_.size();
  }

 private:
  bool take(char c) {
    if (is_quoted_) {
      if (is_escaped_) {
        is_escaped_ = false;
      } else if (c == '\\') {
        is_escaped_ = true;
      } else if (c == '"') {
        is_quoted_ = false;
      }
      return true;
    }
    if (c == '"') is_quoted_ = true;
    if (c == '{' || c == '[') members_.push_back(0);
    if ((c == '}' || c == ']') && !members_.empty()) members_.pop_back();
    if (c == ':' && !members_.empty()) ++members_.back();
    return members_.size() <= kDeepest && (members_.empty() || members_.back() <= kMostMembers);
  }

  std::string_view text_;
  std::vector<std::size_t> members_;  ///< Of each open object.
  bool is_quoted_ = false;
  bool is_escaped_ = false;
};

}  // namespace

Json parseJson(std::string_view text, const std::string& place, const Json::parser_callback_t& look) {
  const std::size_t fault = Nesting(text).firstFault();
  if (fault < text.size()) {
    throw InputError(place, fmt::format("{}: nested deeper than {} or an object of more than {} members; the document "
                                        "of a check was wanted",
                                        placeOf(text, fault), kDeepest, kMostMembers));
  }
  try {
    return Json::parse(text, look);
  } catch (const nlohmann::json::parse_error& error) {
    throw InputError(place, placeOf(text, error.byte) + ": is no JSON; the document of a check was wanted");
  } catch (const nlohmann::json::out_of_range&) {
    throw InputError(place, "holds a number beyond all bounds; the document of a check was wanted");
  }
}

}  // namespace polarline
