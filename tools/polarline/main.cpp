#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <opencv2/core/utils/logger.hpp>
#include <vector>

#include "polarline/errors.h"
#include "tools/polarline/Interruption.h"
#include "tools/polarline/Subcommand.h"

namespace {

int run(int argc, char** argv) {
  CLI::App polarline;
  const std::vector<command::Subcommand> subcommands = command::describe(polarline);
  try {
    polarline.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return polarline.exit(error) == 0 ? command::kDone : command::kUnusable;
  }
  const auto chosen = std::ranges::find_if(subcommands, [](const auto& each) { return each.app->parsed(); });
  return chosen->run();
}

int failed(int code, const std::exception& error) {
  fmt::print(stderr, "polarline: {}\n", error.what());
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  cv::utils::logging::setLogLevel(
      cv::utils::logging::LOG_LEVEL_SILENT);  // What matters of it is said in our own words.
  try {
    command::watchForInterruption();
    return run(argc, argv);
  } catch (const polarline::InputError& error) {
    return failed(command::kUnusable, error);
  } catch (const polarline::OutputError& error) {
    return failed(command::kNotWritten, error);
  } catch (const std::exception& error) {
    return failed(command::kNoFigure, error);
  }
}
