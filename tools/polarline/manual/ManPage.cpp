#include "tools/polarline/manual/ManPage.h"

#include <fmt/format.h>

#include "polarline/explain.h"

namespace manual {
namespace {

std::string beginning(const std::string& title, const Command& command, const std::string& version) {
  return fmt::format(".TH \"{}\" 1 \"\" \"polarline {}\" \"User Commands\"\n.nh\n.ad l\n.SH NAME\n{} \\- {}\n",
                     roff(title), version, roff(title), roff(command.description)) +
         fmt::format(".SH SYNOPSIS\n.nf\n{}\n.fi\n", roff(command.usage));
}

std::string entry(const std::string& head, const std::string& text) {
  return fmt::format(".TP\n\\fB{}\\fR\n{}\n", roff(head), roff(text.empty() ? "-" : text));
}

std::string entries(const std::vector<Option>& options) {
  std::string text;
  for (const Option& option : options) text += entry(option.head, option.description);
  return text;
}

std::string arguments(const Command& command) {
  std::string text;
  if (!command.positionals.empty()) text += ".SH ARGUMENTS\n" + entries(command.positionals);
  if (!command.groups.empty()) text += ".SH OPTIONS\n";
  for (const Group& group : command.groups) {
    if (!group.description.empty()) text += fmt::format(".SS {}\n{}\n", roff(group.heading), roff(group.description));
    text += entries(group.options);
  }
  return text;
}

/// "Example:" and the indented lines below it.
std::string example(const std::string& footer) {
  const std::size_t end = footer.find('\n');
  if (end == std::string::npos) return {};
  return fmt::format(".SH EXAMPLE\n.nf\n{}\n.fi\n", roff(footer.substr(end + 1)));
}

std::string exitCodes() {
  const std::string word = "exit ";
  std::string text = ".SH EXIT STATUS\n";
  for (const polarline::Explanation& each : polarline::explanations())
    if (each.code.starts_with(word)) text += entry(each.code.substr(word.size()), each.meaning);
  return text;
}

}  // namespace

std::string roff(const std::string& text) {
  std::string shown;
  bool is_beginning = true;
  for (const char c : text) {
    if (is_beginning && (c == '.' || c == '\'')) shown += "\\&";
    if (c == '\\')
      shown += "\\(rs";
    else if (c == '-')
      shown += "\\-";
    else if (c == '\'')
      shown += "\\(aq";
    else if (c == '"')
      shown += "\\(dq";
    else
      shown += c;
    is_beginning = c == '\n';
  }
  return shown;
}

std::string mainPage(const Command& polarline, const std::string& version) {
  std::string text = beginning(polarline.name, polarline, version);
  text += ".SH SUBCOMMANDS\n";
  for (const Command& each : polarline.subcommands) text += entry(each.name, each.description);
  text += arguments(polarline) + example(polarline.footer) + exitCodes() + ".SH SEE ALSO\n";
  std::string pages;
  for (const Command& each : polarline.subcommands)
    pages += (pages.empty() ? "" : ",\n") + fmt::format(R"(\fBpolarline\-{}\fR(1))", roff(each.name));
  return text + pages + "\n";
}

std::string subcommandPage(const Command& command, const std::string& version) {
  return beginning("polarline-" + command.name, command, version) + arguments(command) + example(command.footer) +
         exitCodes() + ".SH SEE ALSO\n\\fBpolarline\\fR(1)\n";
}

}  // namespace manual
