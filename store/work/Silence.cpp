#include "store/work/Silence.h"

#include <fstream>
#include <sstream>
#include <string>
#include <system_error>

#include "store/work/ClaimText.h"

namespace polarline {
namespace {

std::string textOfClaim(const StoredPlace& place) {
  std::ostringstream text;
  text << std::ifstream(place.claim(), std::ios::binary).rdbuf();
  return text.str();
}

}  // namespace

bool Silence::isDead(const StoredPlace& place) {
  std::error_code failure;
  const auto touched = std::filesystem::last_write_time(place.claim(), failure);
  if (failure) return false;
  const auto worker = claimant(textOfClaim(place));
  return (worker && process_identity::isGone(*worker)) || isSilent(place, touched);
}

bool Silence::isSilent(const StoredPlace& place, std::filesystem::file_time_type touched) {
  const auto now = StoreFolder::now(place);
  if (now && *now - touched > timeout_) return true;
  const auto [seen, is_new] = seen_.try_emplace(place.name, Seen{touched, Steady::now()});
  if (seen->second.touched != touched) seen->second = {touched, Steady::now()};
  return Steady::now() - seen->second.since > timeout_;
}

}  // namespace polarline
