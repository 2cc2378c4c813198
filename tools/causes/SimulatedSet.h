#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "diagnose/SeenSet.h"
#include "tools/causes/SeenScene.h"

namespace causes {

enum class Present { kNone, kOne, kSome, kAll };  ///< `kSome`: each with probability 0.35.
enum class Errors { kSingle, kShared };           ///< `OwnErrors` of 0.005 pixels, `SharedErrors` of 0.02.

/// What the sets of one line of the table have in common.
struct SetKind {
  const char* name;
  const char* sets;     ///< In words.
  const char* centres;  ///< In words.
  Present present;
  Errors errors;
  bool has_outliers = false;  ///< One right centre of twenty is off by up to 3 pixels each way.
};

inline constexpr std::array<SetKind, 8> kSetKinds{{
    {"some_single", "each cause with probability 0.35", "single", Present::kSome, Errors::kSingle},
    {"some_shared", "the same", "shared", Present::kSome, Errors::kShared},
    {"some_outliers", "the same, 5 % outliers up to 3 px", "shared", Present::kSome, Errors::kShared, true},
    {"all_shared", "all eight at once", "shared", Present::kAll, Errors::kShared},
    {"one_single", "one cause", "single", Present::kOne, Errors::kSingle},
    {"one_shared", "one cause", "shared", Present::kOne, Errors::kShared},
    {"aligned_single", "aligned", "single", Present::kNone, Errors::kSingle},
    {"aligned_shared", "aligned", "shared", Present::kNone, Errors::kShared},
}};

/// Throws `std::out_of_range` where there is none of this name.
const SetKind& setKind(const std::string& name);

/// One of many sets: by its number every lens, one to six pairs tilted up to 25 degrees, causes up to 0.2 degrees,
/// 0.2 %, 3 pixels, 1 % of the baseline and 0.005 of k1. The same number gives the same set on every machine.
struct SimulatedSet {
  SimulatedSet(const SetKind& kind, std::uint64_t number);

  SeenScene scene;  ///< With the misalignment that is true.
  SeenSet seen;
};

}  // namespace causes
