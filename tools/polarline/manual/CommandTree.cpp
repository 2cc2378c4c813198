#include "tools/polarline/manual/CommandTree.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "tools/polarline/manual/Values.h"

namespace manual {
namespace {

constexpr const char* kUsage = "Usage: ";

/// The formatter's texts are the help's.
const CLI::Formatter& helpOf(const CLI::App& app) { return dynamic_cast<CLI::Formatter&>(*app.get_formatter()); }

std::string withoutEnd(std::string text) {
  while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
  return text;
}

std::vector<std::string> namesOf(const CLI::Option& option) {
  std::vector<std::string> names;
  for (const std::string& name : option.get_snames()) names.push_back("-" + name);
  for (const std::string& name : option.get_lnames()) names.push_back("--" + name);
  return names;
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

Option entryOf(const CLI::App& app, const CLI::Option& option) {
  Option entry;
  entry.names = option.nonpositional() ? namesOf(option) : std::vector{option.get_name(true, false)};
  entry.head = joined(entry.names) + helpOf(app).make_option_opts(&option);
  entry.description = option.get_description();
  if (option.get_type_size() != 0) entry.value = valueName(option);
  entry.values = valuesOf(option);
  entry.is_repeatable = option.get_expected_max() >= CLI::detail::expected_max_vector_size;
  return entry;
}

/// A group's own --help is not in the help.
bool isShown(const CLI::App& app, const CLI::Option& option) {
  return !app.get_name().empty() || &option != app.get_help_ptr();
}

void addGroups(Command& command, const CLI::App& app, const std::string& description) {
  for (const std::string& heading : app.get_groups()) {
    Group group{heading, description, {}};
    for (const CLI::Option* const option : app.get_options())
      if (option->get_group() == heading && option->nonpositional() && isShown(app, *option))
        group.options.push_back(entryOf(app, *option));
    if (!heading.empty() && !group.options.empty()) command.groups.push_back(group);
  }
}

}  // namespace

std::vector<Option> Command::options() const {
  std::vector<Option> all;
  for (const Group& group : groups) all.insert(all.end(), group.options.begin(), group.options.end());
  return all;
}

Command commandTree(const CLI::App& app) {
  Command command;
  command.name = app.get_name();
  command.description = app.get_description();
  const std::string called = app.get_parent() == nullptr ? command.name : "polarline " + command.name;
  command.usage = withoutEnd(helpOf(app).make_usage(&app, called)).substr(std::string(kUsage).size());
  command.footer = app.get_footer();
  for (const CLI::Option* const option : app.get_options())
    if (option->get_positional()) command.positionals.push_back(entryOf(app, *option));
  addGroups(command, app, "");
  for (const CLI::App* const below : app.get_subcommands([](const CLI::App*) { return true; })) {
    if (!below->get_name().empty()) {
      command.subcommands.push_back(commandTree(*below));
      continue;
    }
    // A group of options is an application without a name, whose options bear the heading "Options".
    Command grouped;
    addGroups(grouped, *below, withoutEnd(helpOf(app).make_description(below)));
    for (Group& group : grouped.groups) {
      group.heading = below->get_group();
      command.groups.push_back(group);
    }
  }
  return command;
}

}  // namespace manual
