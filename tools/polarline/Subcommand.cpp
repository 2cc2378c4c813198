#include "tools/polarline/Subcommand.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/WholeFile.h"
#include "polarline/errors.h"

namespace command {

void addResultOptions(CLI::App& app, ResultOptions& options) {
  app.add_option("--json", options.json, "Write the result as JSON; - is standard output")->type_name("FILE");
  app.add_flag("--quiet", options.quiet, "Print nothing but failures");
}

void addExample(CLI::App& app, const std::string& example) { app.footer("Example:\n  " + example); }

void say(const std::string& lines) {
  const bool is_terminal = terminal::isTerminal(stdout);
  deliver("-", is_terminal ? terminal::fitted(lines, terminal::width(stdout)) : terminal::printable(lines));
}

void sayLine(const std::string& line) { say(terminal::onOneLine(line) + "\n"); }

void deliver(const std::string& path, const std::string& text) {
  if (path != "-") return whole_file::write(path, text);
  const bool whole = std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (!whole) throw polarline::OutputError("standard output", std::strerror(errno));
}

}  // namespace command
