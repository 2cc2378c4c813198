#include "tools/polarline/Subcommand.h"

namespace command {

std::vector<Subcommand> addSubcommands(CLI::App& polarline) {
  return {
      addCheck(polarline),
      addExplain(polarline),
      addImport(polarline),
      addBoard(polarline),
  };
}
Subcommand addSimulate(CLI::App& polarline);

std::vector<Subcommand> addSubcommands(CLI::App& polarline) { return {addSimulate(polarline)}; }

}  // namespace command
