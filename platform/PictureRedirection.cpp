#include "platform/PictureRedirection.h"

#include <utility>

namespace files {
namespace {

PictureSink*& sinkOfThread() {
  thread_local PictureSink* sink = nullptr;
  return sink;
}

}  // namespace

PictureRedirection::PictureRedirection(PictureSink& sink) : before_(std::exchange(sinkOfThread(), &sink)) {}

PictureRedirection::~PictureRedirection() { sinkOfThread() = before_; }

bool PictureRedirection::takes(const std::string& path, const cv::Mat& picture) {
  PictureSink* const sink = sinkOfThread();
  return sink != nullptr && sink->take(path, picture);
}

}  // namespace files
