#include "store/work/Course.h"

#include <algorithm>
#include <thread>

#include "polarline/errors.h"
#include "polarline/exit_code.h"

namespace polarline {

void demandUsable(const BatchOptions& options) {
  if (options.store.empty()) throw InputError("--store", "no folder was named; one for the results was wanted");
  if (!(options.claim_timeout > 0.0)) throw InputError("--claim-timeout", "seconds above 0 were wanted");
  for (const std::string& limit : options.check.limits) requireLimit(limit);
  const std::vector<std::string> keys = settingKeys();
  for (const std::string& setting : options.check.settings) {
    const std::size_t sign = setting.find('=');
    if (sign == std::string::npos || std::ranges::count(keys, setting.substr(0, sign)) == 0)
      throw InputError("--set " + setting, "KEY=VALUE with a key of the polar configuration was wanted");
  }
}

bool Course::goesOn(const BatchOutcome& outcome) {
  const bool is_wanted =
      (!options_.go_on || options_.go_on()) && (!options_.go_on_with_next || options_.go_on_with_next());
  is_interrupted_ = is_interrupted_ || !is_wanted;
  return !is_interrupted_ && (options_.stop_after == 0 || outcome.failed < options_.stop_after);
}

void Course::wait(const BatchOutcome& outcome, std::chrono::milliseconds time) {
  constexpr std::chrono::milliseconds kStep{50};
  for (; time.count() > 0 && goesOn(outcome); time -= kStep) std::this_thread::sleep_for(std::min(kStep, time));
}

BatchOutcome Course::ended(BatchOutcome outcome, bool is_whole) const {
  if (is_interrupted_ || !is_whole) outcome.exit_code = kInterrupted;
  return outcome;
}

}  // namespace polarline
