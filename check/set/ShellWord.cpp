#include "check/set/ShellWord.h"

#include <string_view>

namespace polarline {

std::string shellWord(const std::string& word) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./+-,:@%";
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos && word[0] != '-') return word;
  std::string quoted;
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return "'" + quoted + "'";
}

}  // namespace polarline
