#include <fmt/format.h>

#include <string>

#include "tools/polarline/manual/Completions.h"

namespace manual {
namespace {

std::string quoted(const std::string& text) {
  std::string shown = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') shown += '\\';
    shown += c == '\n' ? ' ' : c;
  }
  return shown + "'";
}

std::string wordsOf(const Values& values) {
  std::string words;
  for (const std::string& word : values.words) words += (words.empty() ? "" : " ") + word;
  return words.empty() ? "" : " -a " + quoted(words);
}

/// `-F` brings paths back, which the first line of the script takes away.
std::string valueOf(const Option& option) {
  if (option.value.empty()) return {};
  return (option.values.paths ? " -r -F" : " -x") + wordsOf(option.values);
}

std::string line(const std::string& condition, const Option& option) {
  std::string names;
  for (const std::string& name : option.names)
    names += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  return fmt::format("complete -c polarline -n {}{}{} -d {}\n", quoted(condition), names, valueOf(option),
                     quoted(option.description));
}

std::string linesOf(const Command& command) {
  const std::string condition = "__fish_seen_subcommand_from " + command.name;
  std::string text;
  for (const Option& option : command.options()) text += line(condition, option);
  for (const Option& positional : command.positionals) {
    const std::string offered = (positional.values.paths ? " -F" : "") + wordsOf(positional.values);
    if (!offered.empty()) text += fmt::format("complete -c polarline -n {}{}\n", quoted(condition), offered);
  }
  return text;
}

}  // namespace

std::string fishCompletion(const Command& polarline) {
  std::string text = "# fish completion for polarline\ncomplete -c polarline -f\n";
  for (const Command& each : polarline.subcommands)
    text += fmt::format("complete -c polarline -n __fish_use_subcommand -a {} -d {}\n", each.name,
                        quoted(each.description));
  for (const Option& option : polarline.options()) text += line("__fish_use_subcommand", option);
  for (const Command& each : polarline.subcommands) text += linesOf(each);
  return text;
}

}  // namespace manual
