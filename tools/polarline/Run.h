#pragma once

namespace command {

/// What the arguments ask for, as an exit code. Beside `main` itself, which would otherwise parse the parser once more.
int run(int argc, char** argv);

}  // namespace command
