// polarline_manual FOLDER: writes the pages and the completions of the command into a folder, as they lie below share/.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <filesystem>

#include "platform/WholeFile.h"
#include "tools/polarline/Subcommand.h"
#include "tools/polarline/manual/CommandTree.h"
#include "tools/polarline/manual/Completions.h"
#include "tools/polarline/manual/ManPage.h"

namespace {

void put(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  whole_file::write(path.string(), text);
}

void writeAll(const std::filesystem::path& share) {
  CLI::App app;
  command::describe(app);
  const manual::Command polarline = manual::commandTree(app);
  put(share / "man/man1/polarline.1", manual::mainPage(polarline, PLP_VERSION));
  for (const manual::Command& each : polarline.subcommands)
    put(share / "man/man1" / ("polarline-" + each.name + ".1"), manual::subcommandPage(each, PLP_VERSION));
  put(share / "bash-completion/completions/polarline", manual::bashCompletion(polarline));
  put(share / "zsh/site-functions/_polarline", manual::zshCompletion(polarline));
  put(share / "fish/vendor_completions.d/polarline.fish", manual::fishCompletion(polarline));
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) return 2;
  writeAll(argv[1]);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "polarline_manual: %s\n", error.what());
  return 1;
}
