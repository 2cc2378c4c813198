#include "report/words/CommandLine.h"

#include <cstddef>
#include <string_view>

#include "check/set/ShellWord.h"
#include "report/read/ShortPaths.h"

namespace polarline {
namespace {

constexpr std::string_view kSeparatorsOfPaths = "/\\";
constexpr std::string_view kTitle = "--title";

/// Where a path may begin in each word of a command: at its begin, behind the '=' of an option or of a key that
/// "--set" gives a value, or behind the letter of a short option. At the end of a word that is none.
std::size_t beginOfPath(const std::string& word, std::string_view before) {
  if (before == kTitle || word.starts_with(std::string(kTitle) + "=")) return word.size();
  std::size_t begin = 0;
  if (word.starts_with("--") || before == "--set") {
    begin = word.find('=') + 1;  // 0 without one.
    if (word.starts_with("--set=")) begin = word.find('=', begin) + 1;
  } else if (word.starts_with("-") && word.size() > 2) {
    begin = word[2] == '=' ? 3 : 2;
  }
  return begin;
}

/// Calls `take` with each word and where a path may begin in it.
template <typename Take>
void forEachWord(const std::vector<std::string>& words, Take take) {
  std::string_view before;
  for (const std::string& word : words) {
    take(word, beginOfPath(word, before));
    before = word;
  }
}

std::string withoutFolder(const std::string& word, std::size_t begin) {
  if (word.find_first_of(kSeparatorsOfPaths, begin) == std::string::npos) return word;
  return word.substr(0, begin) + fileName(std::string_view(word).substr(begin));
}

/// An option is one by its hyphen, which a quoted word would hide from the reader.
std::string asTyped(const std::string& word) {
  const std::size_t end = word.starts_with("--") ? word.find('=') : std::string::npos;
  if (word.starts_with("-") && end == std::string::npos)
    return shellWord("x" + word) == "x" + word ? word : shellWord(word);
  if (end == std::string::npos) return shellWord(word);
  return word.substr(0, end + 1) + shellWord(word.substr(end + 1));
}

}  // namespace

std::string commandLine(const std::vector<std::string>& words, bool has_paths) {
  std::string line;
  forEachWord(words, [&](const std::string& word, std::size_t begin) {
    line += (line.empty() ? "" : " ") + asTyped(has_paths ? word : withoutFolder(word, begin));
  });
  return line;
}

std::vector<std::string> pathsOfCommand(const std::vector<std::string>& words) {
  std::vector<std::string> paths;
  forEachWord(words, [&](const std::string& word, std::size_t begin) {
    if (word.find_first_of(kSeparatorsOfPaths, begin) != std::string::npos) paths.push_back(word.substr(begin));
  });
  return paths;
}

}  // namespace polarline
