#include "tools/polarline/Subcommand.h"

namespace command {

std::vector<Subcommand> addSubcommands(CLI::App& polarline) {
  return {
      addImport(polarline), addCheck(polarline),    addDetect(polarline),
      addBoard(polarline),  addSimulate(polarline), addExplain(polarline),
      addImport(polarline), addCheck(polarline), addBoard(polarline), addSimulate(polarline), addExplain(polarline),
      addInit(polarline),  addImport(polarline),   addCheck(polarline),   addDetect(polarline),
      addBoard(polarline), addSimulate(polarline), addExplain(polarline),
  };
}

}  // namespace command
