#include "MorvenKit/src/classify/ContourStatus.h"

#include <array>
#include <cstddef>

#include "MorvenKit/CtrlPoint.h"

namespace kestrune::morvenkit {

namespace {

// Of the mean area, to which the plain dots, the most by far, give their own.
constexpr double kDotFrom = 0.2;
constexpr double kBigDotFrom = 1.2;

}  // namespace

ContourStatus statusOfArea(double area, float mean) {
  const double wide = mean;
  if (area > kBigDotFrom * wide) return kStatusBigDot;
  if (kDotFrom * wide < area && area < kBigDotFrom * wide) return kStatusDot;
  return kStatusUnknown;
}

std::uint8_t classOfStatus(int status) {
  static constexpr std::array<std::uint8_t, 7> kClasses = {kDot, 3, kRing, 2, kSolidRing, 5, kBigDot};  // By status.
  if (status == kStatusUnknown) return kUnknown;
  if (status < 0 || status >= static_cast<int>(kClasses.size())) return kRejected;
  return kClasses.at(static_cast<std::size_t>(status));
}

}  // namespace kestrune::morvenkit
