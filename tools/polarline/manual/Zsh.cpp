#include <fmt/format.h>

#include <string>

#include "tools/polarline/manual/Completions.h"

namespace manual {
namespace {

/// Text within single quotes and, there, within a form of `_arguments`.
std::string quoted(const std::string& text) {
  std::string shown;
  for (const char c : text) {
    if (c == '\'')
      shown += "'\\''";
    else if (c == '[' || c == ']' || c == ':' || c == '\\')
      shown += std::string("\\") + c;
    else
      shown += c == '\n' ? ' ' : c;
  }
  return shown;
}

/// What `_arguments` does for a value.
std::string action(const Values& values) {
  std::string words;
  for (const std::string& word : values.words) words += (words.empty() ? "" : " ") + word;
  if (values.paths && !words.empty()) return fmt::format("{{compadd {}; _files}}", words);
  if (values.paths) return "_files";
  if (values.is_begun) return fmt::format("{{compadd -S \"\" {}}}", words);
  return words.empty() ? " " : "(" + words + ")";
}

std::string argumentForm(const Option& option) {
  std::string text;
  const std::string value =
      option.value.empty() ? "" : fmt::format(":{}:{}", quoted(option.value), action(option.values));
  for (const std::string& name : option.names)
    text += fmt::format(" \\\n        '{}{}[{}]{}'", option.is_repeatable ? "*" : "", name, quoted(option.description),
                        value);
  return text;
}

std::string argumentForm(const Option& positional, std::size_t place) {
  const std::string where = positional.is_repeatable ? "*" : std::to_string(place);
  return fmt::format(" \\\n        '{}:{}:{}'", where, quoted(positional.names.front()), action(positional.values));
}

std::string caseOf(const Command& command) {
  std::string text = fmt::format("    {})\n      _arguments", command.name);
  for (const Option& option : command.options()) text += argumentForm(option);
  std::size_t place = 0;
  for (const Option& positional : command.positionals) text += argumentForm(positional, ++place);
  return text + " ;;\n";
}

}  // namespace

std::string zshCompletion(const Command& polarline) {
  std::string subcommands;
  std::string cases;
  for (const Command& each : polarline.subcommands) {
    subcommands += fmt::format("    '{}:{}'\n", each.name, quoted(each.description));
    cases += caseOf(each);
  }
  std::string options;
  for (const Option& option : polarline.options()) options += argumentForm(option);
  return "#compdef polarline\n# zsh completion for polarline\n_polarline() {\n  local -a subcommands=(\n" +
         subcommands + "  )\n  local curcontext=$curcontext state line\n  typeset -A opt_args\n  _arguments -C" +
         options + " \\\n        '1:subcommand:->subcommand' '*::argument:->argument'\n" +
         "  [[ $state == subcommand ]] && _describe subcommand subcommands\n  [[ $state == argument ]] || return\n" +
         "  case $line[1] in\n" + cases + "  esac\n}\n_polarline \"$@\"\n";
}

}  // namespace manual
