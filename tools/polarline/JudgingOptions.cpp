#include "tools/polarline/JudgingOptions.h"

#include <charconv>
#include <cstddef>
#include <system_error>

#include "polarline/errors.h"

namespace command {

/// "3" or "3-7".
void JudgingOptions::takePairs() {
  if (pairs.empty()) return;
  std::size_t first = 0, last = 0;
  const char* const end = pairs.data() + pairs.size();
  auto read = std::from_chars(pairs.data(), end, first);
  last = first;
  if (read.ec == std::errc() && read.ptr != end && *read.ptr == '-') read = std::from_chars(read.ptr + 1, end, last);
  if (read.ec != std::errc() || read.ptr != end)
    throw polarline::InputError("--pairs " + pairs,
                                "the first and the last pair, counted from 0, were wanted, such as 0-9");
  check.pairs = {first, last};
}

void addJudgingOptions(CLI::App& app, JudgingOptions& options) {
  app.add_option("--limit", options.check.limits,
                 "FIGURE OP VALUE, such as 'dy_means<=0.1', '|tri_dis[0]|<=0.5', 'summary.dy_means.mean<=0.1', "
                 "'given_up<=0', with --refine 'refined.dy_means<=0.05'; repeatable")
      ->type_name("LIMIT")
      ->allow_extra_args(false);
  app.add_flag("--refine", options.check.refine,
               "Refines the dots' centres and gives every figure from these, too, beside the library's own");
  app.add_option("--pairs", options.pairs, "Only the pairs A to B of the list, counted from 0")->type_name("A-B");
  app.add_option("--set", options.check.settings, "A key of the polar configuration for this run; repeatable")
      ->type_name("KEY=VALUE")
      ->allow_extra_args(false);
}

void addFileOptions(CLI::App& app, polarline::Set& files) {
  app.add_option("--polar", files.polar, "Polar configuration in place of the set's")->type_name("FILE");
  app.add_option("--target", files.target, "Description of the board in place of the set's")->type_name("FILE");
  app.add_option("--calibration", files.calibration, "Calibration in place of the set's")->type_name("FILE");
  app.add_option("--board", files.board, "True positions of the dots in place of the set's")->type_name("FILE");
  app.add_option("--limits", files.limits, "File of limits in place of the set's")->type_name("FILE");
}

}  // namespace command
