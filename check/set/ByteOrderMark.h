#pragma once

#include <string>
#include <string_view>

/// What editors of some systems put before the first line of UTF-8. It can't be seen, so a message has to name it.
namespace byte_order_mark {

inline constexpr std::string_view kMark = "\xEF\xBB\xBF";

inline bool begins(std::string_view text) { return text.starts_with(kMark); }

inline std::string cutOff(std::string_view text) {
  return std::string(begins(text) ? text.substr(kMark.size()) : text);
}

/// Behind what was wanted; empty for a text that does not begin with one.
inline std::string wordsOf(std::string_view text) {
  return begins(text) ? "; a byte order mark, which can't be seen, stands before the first character: save the file "
                        "as UTF-8 without it"
                      : "";
}

}  // namespace byte_order_mark
