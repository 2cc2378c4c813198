#include "diagnose/quality/EdgeSpread.h"

#include <boost/math/special_functions/erf.hpp>
#include <cmath>
#include <numbers>
#include <opencv2/core.hpp>

namespace diagnose {
namespace {

constexpr double kBinsAPixel = 4.0;
/// Below and above these shares of the rise the levels of dot and ground count more than the edge.
constexpr double kLeastShare = 0.1;
constexpr double kMostShare = 0.9;
/// A wider rise than this is not all seen, pixels.
constexpr double kWidest = 6.0;
constexpr double kLeastPixels = 4.0;
constexpr std::size_t kLeastBins = 3;

/// Standard deviations from its middle at which a Gaussian edge has risen to a share.
double probit(double share) { return std::numbers::sqrt2 * boost::math::erf_inv(2.0 * share - 1.0); }

/// A straight line through weighted points.
struct LineSums {
  double w = 0.0, x = 0.0, y = 0.0, xx = 0.0, xy = 0.0;
  std::size_t points = 0;

  void add(double at, double value, double weight) {
    w += weight;
    x += weight * at;
    y += weight * value;
    xx += weight * at * at;
    xy += weight * at * value;
    ++points;
  }
  double slope() const { return (w * xy - x * y) / (w * xx - x * x); }
};

}  // namespace

void EdgeSpread::add(const DotLook& dot) {
  constexpr double kHalf = kBins / 2.0;
  for (const NearPixel& pixel : dot.pixels) {
    const double place = (pixel.reach - dot.radius) * pixel.pixels_a_step * kBinsAPixel + kHalf;
    if (!(place >= 0.0 && place < static_cast<double>(kBins))) continue;
    const double turn = pixel.normal / std::numbers::pi;  // Opposite directions count alike.
    const auto sector = static_cast<std::size_t>(std::lround((turn - std::floor(turn)) * kSectors)) % kSectors;
    Bin& bin = sectors_.at(sector).at(static_cast<std::size_t>(place));
    bin.sum += (pixel.grey - dot.dot) / (dot.ground - dot.dot);
    bin.count += 1.0;
  }
}

std::optional<double> EdgeSpread::widthOf(const Sector& sector) {
  LineSums line;
  for (std::size_t k = 0; k < kBins; ++k) {
    const Bin& bin = sector.at(k);
    if (bin.count < kLeastPixels) continue;
    const double share = bin.sum / bin.count;
    if (share < kLeastShare || share > kMostShare) continue;
    const double z = probit(share);
    // A share is the surer the steeper the rise: weights by its slope's square.
    line.add((static_cast<double>(k) + 0.5) / kBinsAPixel, z, bin.count * std::exp(-z * z));
  }
  if (line.points < kLeastBins || !(line.slope() > 0.0)) return std::nullopt;
  const double width = 1.0 / line.slope();
  return width < kWidest ? std::optional(width) : std::nullopt;
}

std::optional<EdgeWidths> EdgeSpread::widths() const {
  // Variance by direction is that of a 2 x 2 covariance: constant + cosine + sine of twice the angle.
  cv::Matx33d normal = cv::Matx33d::zeros();
  cv::Vec3d right(0.0, 0.0, 0.0);
  for (std::size_t k = 0; k < kSectors; ++k) {
    const std::optional<double> width = widthOf(sectors_.at(k));
    if (!width) return std::nullopt;
    const double angle = 2.0 * std::numbers::pi * static_cast<double>(k) / kSectors;
    const cv::Vec3d terms(1.0, std::cos(angle), std::sin(angle));
    normal += terms * terms.t();
    right += terms * (*width * *width);
  }
  const cv::Vec3d fit = normal.solve(right, cv::DECOMP_CHOLESKY);
  const double swing = std::hypot(fit[1], fit[2]);
  if (!(swing < fit[0])) return std::nullopt;
  EdgeWidths widths;
  widths.mean = std::sqrt(fit[0]);
  widths.along = std::sqrt(fit[0] + swing);
  widths.across = std::sqrt(fit[0] - swing);
  const double degrees = std::atan2(fit[2], fit[1]) * 90.0 / std::numbers::pi;
  widths.direction = degrees < 0.0 ? degrees + 180.0 : degrees;
  return widths;
}

}  // namespace diagnose
