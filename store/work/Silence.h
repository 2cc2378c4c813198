#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>

#include "store/work/StoreFolder.h"

namespace polarline {

/// Knows which claims nobody works behind any more. A worker touches its claim again and again; what counts is the time
/// of the store's device, as no two machines have the same clock. Where that clock went back, a claim that stays as it
/// is for as long as this process looked counts, too.
class Silence {
 public:
  explicit Silence(double timeout_seconds) : timeout_(timeout_seconds) {}

  bool isDead(const StoredPlace& place);

 private:
  using Steady = std::chrono::steady_clock;
  struct Seen {
    std::filesystem::file_time_type touched;
    Steady::time_point since;
  };
  bool isSilent(const StoredPlace& place, std::filesystem::file_time_type touched);

  std::chrono::duration<double> timeout_;
  std::map<std::string, Seen> seen_;  ///< By name.
};

}  // namespace polarline
