#include "report/words/CommandLine.h"

#include "check/set/ShellWord.h"
#include "report/read/ShortPaths.h"

namespace polarline {
namespace {

/// A path may be the whole word or stand behind an option's '='.
std::string withoutFolder(const std::string& word) {
  if (word.find_first_of("/\\") == std::string::npos) return word;
  const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string::npos;
  const std::size_t begin = equals == std::string::npos ? 0 : equals + 1;
  return word.substr(0, begin) + fileName(word.substr(begin));
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
  for (const std::string& word : words)
    line += (line.empty() ? "" : " ") + asTyped(has_paths ? word : withoutFolder(word));
  return line;
}

}  // namespace polarline
