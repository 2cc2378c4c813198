#pragma once

#include <CLI/CLI.hpp>
#include <string>

#include "polarline/check.h"
#include "polarline/set.h"

namespace command {

/// How sets are judged, of one as of many.
struct JudgingOptions {
  polarline::CheckOptions check;
  std::string pairs;  ///< As written.

  /// Takes the pairs as they are written. Throws `polarline::InputError`.
  void takePairs();
};
void addJudgingOptions(CLI::App& app, JudgingOptions& options);

/// Files in place of a set's own; a list, whose names are relative to itself, is not one of them.
void addFileOptions(CLI::App& app, polarline::Set& files);

}  // namespace command
