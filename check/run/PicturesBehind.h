#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <opencv2/core.hpp>
#include <string>
#include <thread>

#include "platform/PictureRedirection.h"

namespace polarline {

/// Writes the pictures of the calling thread behind it, in their order, by a thread of its own, as compressing them
/// costs as much as measuring the next pair. What could not be written the watches of its folder learn.
class PicturesBehind final : public files::PictureSink {
 public:
  /// Pictures wait for their turn up to `most_bytes`, or one that is larger alone; then the caller waits.
  explicit PicturesBehind(std::size_t most_bytes = std::size_t{64} << 20U);
  /// Those that still wait are not written.
  ~PicturesBehind() override;

  bool take(const std::string& path, const cv::Mat& picture) override;
  /// Waits until all are written.
  void finish();

 private:
  struct Waiting {
    std::string path;
    cv::Mat picture;
  };

  void work();

  const std::size_t most_bytes_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Waiting> waiting_;  ///< The first is the one being written.
  std::size_t bytes_ = 0;
  bool ends_ = false;
  std::thread writer_;
  files::PictureRedirection redirection_;
};

}  // namespace polarline
