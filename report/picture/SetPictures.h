#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

#include "report/measure/KnownCameras.h"
#include "report/picture/PagePicture.h"
#include "report/picture/Rectifier.h"
#include "report/picture/SetFiles.h"
#include "report/read/Json.h"

namespace polarline {

/// The pictures of a checked set as the page shows them.
class SetPictures {
 public:
  /// @param document As it was read: its paths lead to the files.
  /// @param part     Of the pictures that the check looked at; empty: it is not known, and the whole is shown.
  SetPictures(const Json& document, const std::string& path, const cv::Rect& part,
              const std::optional<KnownCameras>& cameras);

  /// Of the pair at a place of the document; behind the last one that at which the run ended without an entry for it.
  PairPictures of(std::size_t place) const;

  /// As `SetFiles::lostPictures`, of those that were asked for.
  std::string lost() const { return files_.lostPictures(); }

 private:
  struct Pair {
    std::string index;
    bool is_finished = false;
    std::string failed_side, failed_step;
  };
  cv::Mat read(const std::string& role) const;
  std::optional<FailedStep> failedStep(std::size_t place, const cv::Mat& left, const cv::Mat& right) const;

  SetFiles files_;
  Rectifier rectifier_;
  cv::Rect part_;
  std::vector<Pair> pairs_;
};

}  // namespace polarline
