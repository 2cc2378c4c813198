#include "tools/polarline/Subcommand.h"

namespace command {

std::vector<Subcommand> addSubcommands(CLI::App& polarline) {
  return {
      addInit(polarline),     addImport(polarline), addCheck(polarline), addDetect(polarline), addBoard(polarline),
      addSimulate(polarline), addReport(polarline), addBatch(polarline), addMerge(polarline),  addExplain(polarline),
  };
}

}  // namespace command
