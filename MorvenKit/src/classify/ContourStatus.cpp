#include "MorvenKit/src/classify/ContourStatus.h"

#include <array>
#include <cstddef>

#include "MorvenKit/CtrlPoint.h"

namespace kestrune::morvenkit {

ContourStatus statusOfArea(double area, float mean) {
  const double wide = mean;
  if (area > 1.2 * wide) return kStatusBigDot;
  if (0.2 * wide < area && area < 1.2 * wide) return kStatusDot;
  return kStatusUnknown;
}

std::uint8_t classOfStatus(int status) {
  static constexpr std::array<std::uint8_t, 7> kClasses = {kDot, 3, kRing, 2, kSolidRing, 5, kBigDot};
  if (status == kStatusUnknown) return kUnknown;
  if (status < 0 || status >= static_cast<int>(kClasses.size())) return kRejected;
  return kClasses.at(static_cast<std::size_t>(status));
}

}  // namespace kestrune::morvenkit
