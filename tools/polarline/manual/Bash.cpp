#include <fmt/format.h>

#include <string>

#include "tools/polarline/manual/Completions.h"

namespace manual {
namespace {

/// Needs `begin`, what the user has written of the word. Names of files keep their blanks.
constexpr const char* kHelpers = R"(_polarline_words() {
  local found
  while IFS= read -r found; do COMPREPLY+=("$found"); done < <(compgen -W "$1" -- "$begin")
}
_polarline_paths() {
  local found
  compopt -o filenames 2>/dev/null
  while IFS= read -r found; do COMPREPLY+=("$found"); done < <(compgen -f -- "$begin")
}
)";

/// `--name=value` comes as three words.
constexpr const char* kWhere =
    R"(  local begin=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} subcommand= place=0 i
  COMPREPLY=()
  if [[ $begin == '=' ]]; then
    begin=
  elif [[ $before == '=' ]]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}
  fi
  ((COMP_CWORD > 1)) && subcommand=${COMP_WORDS[1]}
)";

std::string wordsOf(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text;
}

std::string offer(const Values& values) {
  std::string text;
  if (!values.words.empty()) text += fmt::format("_polarline_words '{}'; ", wordsOf(values.words));
  if (values.paths) text += "_polarline_paths; ";
  if (values.is_begun) text += "compopt -o nospace 2>/dev/null; ";
  return text;
}

/// The words that, behind a subcommand, want a value.
std::string patternOf(const std::string& subcommand, const Option& option) {
  std::string text;
  for (const std::string& name : option.names)
    text += fmt::format("{}'{} {}'", text.empty() ? "" : "|", subcommand, name);
  return text;
}

std::string valueCases(const Command& polarline) {
  std::string text = "  case \"$subcommand $before\" in\n";
  for (const Command& each : polarline.subcommands)
    for (const Option& option : each.options())
      if (!option.value.empty())
        text += fmt::format("    {}) {}return ;;\n", patternOf(each.name, option), offer(option.values));
  return text + "  esac\n";
}

/// Counts the positionals that stand before the word.
std::string placeLoop(const Command& polarline) {
  std::string valued;
  for (const Command& each : polarline.subcommands)
    for (const Option& option : each.options())
      if (!option.value.empty()) valued += (valued.empty() ? "" : "|") + patternOf(each.name, option);
  return "  for ((i = 2; i < COMP_CWORD; ++i)); do\n    case \"$subcommand ${COMP_WORDS[i]}\" in\n" +
         (valued.empty()
              ? ""
              : fmt::format("      {}) [[ ${{COMP_WORDS[i + 1]}} == '=' ]] && ((++i)); ((++i)) ;;\n", valued)) +
         "      *' -'*) ;;\n      *) ((++place)) ;;\n    esac\n  done\n";
}

std::string placeCases(const Command& polarline) {
  std::string text = "  case \"$subcommand $place\" in\n";
  for (const Command& each : polarline.subcommands) {
    std::size_t place = 0;
    for (const Option& positional : each.positionals) {
      const std::string where =
          positional.is_repeatable ? "'" + each.name + " '*" : fmt::format("'{} {}'", each.name, place);
      text += fmt::format("    {}) {};;\n", where, offer(positional.values));
      ++place;
    }
  }
  return text + "  esac\n";
}

std::string optionCases(const Command& polarline) {
  std::string text = "  if [[ $begin == -* ]]; then\n    case $subcommand in\n";
  for (const Command& each : polarline.subcommands) {
    std::string names;
    for (const Option& option : each.options()) names += (names.empty() ? "" : " ") + wordsOf(option.names);
    text += fmt::format("      {}) _polarline_words '{}' ;;\n", each.name, names);
  }
  return text + "    esac\n    return\n  fi\n";
}

}  // namespace

std::string bashCompletion(const Command& polarline) {
  std::string first;
  for (const Command& each : polarline.subcommands) first += each.name + " ";
  for (const Option& option : polarline.options()) first += wordsOf(option.names) + " ";
  first.pop_back();
  return "# bash completion for polarline\n" + std::string(kHelpers) + "_polarline() {\n" + kWhere +
         fmt::format("  if [[ -z $subcommand ]]; then\n    _polarline_words '{}'\n    return\n  fi\n", first) +
         valueCases(polarline) + optionCases(polarline) + placeLoop(polarline) + placeCases(polarline) +
         "}\ncomplete -F _polarline polarline\n";
}

}  // namespace manual
