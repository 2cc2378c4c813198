#include "MorvenKit/src/ContourStatus.h"

#include <array>
#include <cstddef>

#include "MorvenKit/CtrlPoint.h"

namespace kestrune::morvenkit {

std::uint8_t classOfStatus(int status) {
  static constexpr std::array<std::uint8_t, 7> kClasses = {kDot, 3, kRing, 2, kSolidRing, 5, kBigDot};
  if (status == kStatusUnknown) return kUnknown;
  if (status < 0 || status >= static_cast<int>(kClasses.size())) return kRejected;
  return kClasses.at(static_cast<std::size_t>(status));
}

}  // namespace kestrune::morvenkit
