#pragma once

#include <opencv2/core.hpp>
#include <string>

namespace files {

/// Takes pictures that would be written.
class PictureSink {
 public:
  PictureSink() = default;
  PictureSink(const PictureSink&) = delete;
  PictureSink& operator=(const PictureSink&) = delete;
  virtual ~PictureSink() = default;

  /// False leaves the picture to the caller. The caller may draw into it afterwards.
  virtual bool take(const std::string& path, const cv::Mat& picture) = 0;
};

/// While it lives, a sink is asked to take each picture that the calling thread writes. They nest.
class PictureRedirection {
 public:
  /// `sink` must outlive it.
  explicit PictureRedirection(PictureSink& sink);
  PictureRedirection(const PictureRedirection&) = delete;
  PictureRedirection& operator=(const PictureRedirection&) = delete;
  ~PictureRedirection();

  /// Whether a sink of this thread took the picture.
  static bool takes(const std::string& path, const cv::Mat& picture);

 private:
  PictureSink* before_;
};

}  // namespace files
