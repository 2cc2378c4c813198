#include "store/fleet/FleetSets.h"

#include "store/work/UtcTime.h"

namespace polarline::fleet {
namespace {

Ending endingOf(const std::string& verdict, std::int64_t judged) {
  if (verdict == "error") return Ending::kError;
  if (verdict == "fail") return Ending::kFailed;
  return judged > 0 ? Ending::kPassed : Ending::kUnjudged;
}

}  // namespace

FleetSets::FleetSets(const sqlite::Database& database) {
  sqlite::Statement row(database,
                        "SELECT id, time, verdict, judged, diagnosed, pairs, finished, has_time FROM sets "
                        "ORDER BY time, inputs_sha256, name");
  while (row.step()) {
    FleetSet set;
    set.id = row.integer(0);
    set.time = secondsOf(row.text(1));
    set.ending = endingOf(row.text(2), row.integer(3));
    set.is_diagnosed = row.integer(4) != 0;
    set.pairs = row.integer(5);
    set.finished = row.integer(6);
    if (row.integer(7) == 0) ++without_time_;
    const auto number = static_cast<std::size_t>(set.id);
    if (places_.size() <= number) places_.resize(number + number / 2 + 1);
    places_[number] = sets_.size();
    sets_.push_back(set);
  }
}

}  // namespace polarline::fleet
