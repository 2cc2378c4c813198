#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/ContourCounts.h"
#include "MorvenKit/Ellipse.h"

namespace kestrune::morvenkit {

/// Limits and methods of the ellipse detector.
struct EllipseDetectorParams {
  double min_radius = 1.0;                ///< Pixels. A contour must have 5 times as many points at least.
  double max_radius = 50.0;               ///< Pixels. A contour must have fewer points than 8.5 times this.
  double max_sigma = 1.0;                 ///< Largest accepted edge residual, pixels, exclusive.
  double min_circularity = 0.3;           ///< Lowest accepted circularity, exclusive.
  std::int32_t resize_interpolation = 2;  ///< How the tile thresholds spread over the image: `cv::INTER_CUBIC`.
  bool fill_blobs = true;                 ///< Last step of binarisation 0.
  bool area_mode = false;                 ///< Classes by blob area instead of transitions on rays.
  std::int32_t bin_method = 0;            ///< 0: thresholds by tiles; 1: by outlines; 2: filled outlines of edges.
  double bin_thresh = 0.0;                ///< Not read: kept because configurations carry it.
  std::int32_t bin_blocksize = 200;       ///< Tile size of binarisation 0, pixels.
};

/// Finds black blobs, rings and rings with a core.
template <typename T>
class EllipseDetector {
 public:
  EllipseDetectorParams params;

  /// Appends every accepted ellipse with its class. `binary` gets the two-valued image. Throws `cv::Exception` for an
  /// image that is not 8-bit one-channel, an empty one, and a mask of another size or type. Returns what became of the
  /// contours.
  ContourCounts detect(cv::InputArray image, std::vector<Ellipse<T>>& ellipses, cv::OutputArray binary,
                       cv::InputArray mask) const;

  /// The same without classification: every class is 0.
  ContourCounts detectframework(cv::InputArray image, std::vector<Ellipse<T>>& ellipses, cv::OutputArray binary,
                                cv::InputArray mask) const;
};

extern template class EllipseDetector<double>;

}  // namespace kestrune::morvenkit
