#include "tools/polarline/Run.h"

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "check/explain/Names.h"
#include "polarline/errors.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

/// With their hyphens, the long ones first.
std::vector<std::string> optionNames(const CLI::App& app) {
  std::vector<std::string> names, short_names;
  for (const CLI::Option* option : app.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    for (const std::string& name : option->get_snames()) short_names.push_back("-" + name);
  }
  names.insert(names.end(), short_names.begin(), short_names.end());
  return names;
}

/// Of an option that `polarline` itself does not have CLI11 tells only that a subcommand is wanted.
void demandOption(const CLI::App& app, const std::string& word) {
  const std::vector<std::string> names = optionNames(app);
  const std::string name = word.substr(0, word.find('='));
  if (std::ranges::count(names, name) != 0) return;
  throw polarline::InputError("'" + word + "'", "is no option of polarline itself" +
                                                    polarline::offer(polarline::nearest(name, names)) +
                                                    "; those of a subcommand stand behind its name");
}

/// A first word that is no subcommand: CLI11 tells only that one is wanted.
void demandKnown(const CLI::App& app, const std::vector<Subcommand>& subcommands, const std::string& word) {
  std::vector<std::string> names;
  names.reserve(subcommands.size());
  for (const Subcommand& each : subcommands) names.push_back(each.app->get_name());
  if (std::ranges::count(names, word) != 0) return;
  if (word.starts_with('-')) return demandOption(app, word);
  throw polarline::InputError("'" + word + "'",
                              "is no subcommand of polarline" + polarline::offer(polarline::nearest(word, names)));
}

/// An option whose value is empty, as a variable of a script leaves it that is not set, would be taken for one that was
/// not given, or would take the next option for its value.
void demandValues(const std::vector<std::string>& words) {
  for (std::size_t k = 0; k < words.size(); ++k) {
    const std::string& word = words[k];
    const bool is_value = word.empty() && k > 0 && words[k - 1].starts_with("-");
    if (is_value) throw polarline::InputError(words[k - 1], "the argument behind it is empty");
    if (word.empty()) throw polarline::InputError("''", "an argument is empty");
    if (word.starts_with("--") && word.find('=') == word.size() - 1)
      throw polarline::InputError(word, "has no value behind '='");
  }
}

/// Of options that the subcommand does not have those that were probably meant.
std::string optionsNear(const CLI::App& app, const std::vector<std::string>& words) {
  const std::vector<std::string> names = optionNames(app);
  for (const std::string& word : words) {
    const std::string name = word.substr(0, word.find('='));
    if (name.starts_with("--") && name != "--" && std::ranges::count(names, name) == 0)
      return polarline::offer(polarline::nearest(name, names));
  }
  return {};
}

/// The parser's words in one line, and whose help tells more.
int refused(const CLI::App& polarline, const std::vector<std::string>& words, const CLI::ParseError& error) {
  const CLI::App* app = &polarline;
  for (const CLI::App* each : polarline.get_subcommands({})) {
    if (!words.empty() && each->get_name() == words[0]) app = each;
  }
  std::string text = error.what();
  std::ranges::replace(text, '\n', ' ');
  const std::string name = app == &polarline ? "polarline" : "polarline " + app->get_name();
  tell("polarline: {}{}; '{} --help' tells more\n", text, optionsNear(*app, words), name);
  return kUnusable;
}

std::vector<std::string>& keptWords() {
  static std::vector<std::string> words;
  return words;
}

}  // namespace

const std::vector<std::string>& givenWords() { return keptWords(); }

int run(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  demandValues(words);
  keptWords() = words;
  keptWords().insert(keptWords().begin(), "polarline");
  CLI::App polarline;
  const std::vector<Subcommand> subcommands = describe(polarline);
  if (argc > 1) demandKnown(polarline, subcommands, argv[1]);
  try {
    polarline.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    std::ostringstream out;
    if (error.get_exit_code() != 0) return refused(polarline, words, error);
    polarline.exit(error, out, out);
    say(out.str());
    return kDone;
  }
  const auto chosen = std::ranges::find_if(subcommands, [](const auto& each) { return each.app->parsed(); });
  return chosen->run();
}

}  // namespace command
