#pragma once

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "polarline/exit_code.h"
#include "tools/polarline/Terminal.h"

namespace command {

using enum polarline::ExitCode;

/// A subcommand: its options, and what it does when they have been parsed; the result is the exit code.
struct Subcommand {
  CLI::App* app = nullptr;
  std::function<int()> run;
};

Subcommand addInit(CLI::App& polarline);
Subcommand addImport(CLI::App& polarline);
Subcommand addCheck(CLI::App& polarline);
Subcommand addDetect(CLI::App& polarline);
Subcommand addBoard(CLI::App& polarline);
Subcommand addSimulate(CLI::App& polarline);
Subcommand addReport(CLI::App& polarline);
Subcommand addBatch(CLI::App& polarline);
Subcommand addMerge(CLI::App& polarline);
Subcommand addExplain(CLI::App& polarline);

/// Every subcommand, in the order of the help. A new one is a file of its own and a line in Subcommands.cpp.
std::vector<Subcommand> addSubcommands(CLI::App& polarline);

/// The whole command: its name, what it says of itself, and every subcommand.
std::vector<Subcommand> describe(CLI::App& polarline);

/// The options that each subcommand with a result has.
struct ResultOptions {
  std::string json;    ///< Where the JSON document goes: a path, "-" for standard output, empty for nowhere.
  bool quiet = false;  ///< Nothing but failures.
};
void addResultOptions(CLI::App& app, ResultOptions& options);

/// Ends the help of a subcommand with an example, which a test runs: a command line that begins with "polarline".
void addExample(CLI::App& app, const std::string& example);

/// Says something on standard error, without control characters. That this can't be written changes nothing: the exit
/// code still tells.
template <typename... Values>
void tell(fmt::format_string<Values...> words, Values&&... values) {
  std::fputs(terminal::printable(fmt::format(words, std::forward<Values>(values)...)).c_str(), terminal::errors());
}

/// Puts lines for people on standard output, without control characters, no longer than a terminal is wide. Throws
/// `polarline::OutputError`.
void say(const std::string& lines);
/// One line for people, also where a name in it has a line end.
void sayLine(const std::string& line);

/// Puts a text at a path, whole or not at all; "-" is standard output. Throws `polarline::OutputError`.
void deliver(const std::string& path, const std::string& text);

}  // namespace command
