#include "tools/polarline/Subcommand.h"

namespace command {

std::vector<Subcommand> addSubcommands(CLI::App& polarline) {
  return {
      addCheck(polarline),
      addExplain(polarline),
      addDetect(polarline),
      addImport(polarline),
      addCheck(polarline),
      addBoard(polarline),
      addSimulate(polarline),
      addExplain(polarline),
  };
}

}  // namespace command
