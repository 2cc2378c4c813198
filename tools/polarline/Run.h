#pragma once

#include <string>
#include <vector>

namespace command {

/// What the arguments ask for, as an exit code. Beside `main` itself, which would otherwise parse the parser once more.
int run(int argc, char** argv);

/// The words that `run` was given, the name of the command first.
const std::vector<std::string>& givenWords();

}  // namespace command
