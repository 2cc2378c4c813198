#pragma once

#include "tools/polarline/manual/CommandTree.h"

/// A command whose one subcommand, draw, has one option.
inline manual::Command withOption(const manual::Option& option) {
  manual::Command polarline;
  polarline.subcommands.resize(1);
  polarline.subcommands[0].name = "draw";
  polarline.subcommands[0].groups = {{"Options", "", {option}}};
  return polarline;
}
