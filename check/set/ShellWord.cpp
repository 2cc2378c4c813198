#include "check/set/ShellWord.h"

#include <string_view>

#include "platform/Printable.h"

namespace polarline {
namespace {

/// In bash's and zsh's quotes for what can't be typed.
std::string escaped(const std::string& word) {
  std::string quoted;
  for (const char c : word) quoted += c == '\'' || c == '\\' ? std::string("\\") + c : std::string(1, c);
  return "$'" + plain::onOneLine(quoted) + "'";
}

}  // namespace

std::string shellWord(const std::string& word) {
  constexpr std::string_view kPlain = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_./+-,:@%";
  if (!word.empty() && word.find_first_not_of(kPlain) == std::string::npos && word[0] != '-') return word;
  if (!plain::isPlainLine(word)) return escaped(word);
  std::string quoted;
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return "'" + quoted + "'";
}

}  // namespace polarline
