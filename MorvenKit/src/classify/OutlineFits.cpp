#include "MorvenKit/src/classify/OutlineFits.h"

#include <iterator>
#include <utility>

#include "MorvenKit/src/contours/RefineSubPixel.h"

namespace kestrune::morvenkit {

OutlineFits::OutlineFits(const ContourTree& tree, const cv::Mat& grey)
    : tree_(tree), grey_(grey), places_(tree.contours.size(), -1) {}

const OutlineFit& OutlineFits::of(int index) {
  std::ptrdiff_t& place = places_.at(static_cast<std::size_t>(index));
  if (place < 0) {
    const Contour& outline = tree_.points(index);
    std::vector<cv::Point2f> refined = RefineSubPixel(outline, grey_);
    const bool complete = refined.size() == outline.size();
    fits_.push_back({fitEllipseRobust(std::move(refined)), complete});
    place = std::ssize(fits_) - 1;
  }
  return fits_[static_cast<std::size_t>(place)];
}

}  // namespace kestrune::morvenkit
