#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The command as its help tells it, in plain records: what the pages and the completions are made of.
namespace manual {

/// What may stand in a place of the command line.
struct Values {
  bool paths = false;              ///< Files and folders.
  std::vector<std::string> words;  ///< A choice of these.
  bool is_begun = false;           ///< The words are beginnings: the user writes on.
};

struct Option {
  std::vector<std::string> names;  ///< With their dashes; of a positional its name.
  std::string head;                ///< Names, value and default as the help has them.
  std::string description;
  std::string value;  ///< What the value is called; empty: the option has none.
  Values values;
  bool is_repeatable = false;
};

/// Options that stand under one heading.
struct Group {
  std::string heading;
  std::string description;
  std::vector<Option> options;
};

struct Command {
  std::string name;  ///< "polarline" or the subcommand's.
  std::string description;
  std::string usage;  ///< Without the word "Usage".
  std::vector<Option> positionals;
  std::vector<Group> groups;
  std::string footer;
  std::vector<Command> subcommands;

  /// Those of all groups.
  std::vector<Option> options() const;
};

/// Reads what `command::describe` has described.
Command commandTree(const CLI::App& app);

}  // namespace manual
