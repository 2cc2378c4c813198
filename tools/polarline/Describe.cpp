#include "tools/polarline/Subcommand.h"

namespace command {

std::vector<Subcommand> describe(CLI::App& polarline) {
  polarline.name("polarline");
  polarline.description(
      "Judges how well a calibrated stereo camera pair is aligned, from pictures of a board of dots.");
  polarline.require_subcommand(1);
  polarline.set_version_flag("--version", PLP_VERSION);
  polarline.footer(
      "Example:\n  polarline simulate ring_320 try_it\n  polarline check try_it\n\n"
      "'polarline SUBCOMMAND --help' tells each one's options, with an example.\n"
      "The guide leads from pictures to a decision: index.html of /usr/share/doc/polarline-doc/html where the package\n"
      "polarline-doc is, docs/guide/README.md in the sources.");
  return addSubcommands(polarline);
}

}  // namespace command
