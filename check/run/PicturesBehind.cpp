#include "check/run/PicturesBehind.h"

#include <exception>

#include "platform/Files.h"
#include "platform/OutputFile.h"

namespace polarline {
namespace {

std::size_t bytesOf(const cv::Mat& picture) { return picture.total() * picture.elemSize(); }

void write(const std::string& path, const cv::Mat& picture) {
  try {
    files::writeImage(path, picture);
  } catch (const std::exception&) {  // Out of memory, say; what the encoder refuses never comes here.
    files::noteFailedWrite(path);
  }
}

}  // namespace

PicturesBehind::PicturesBehind(std::size_t most_bytes)
    : most_bytes_(most_bytes), writer_([this] { work(); }), redirection_(*this) {}

PicturesBehind::~PicturesBehind() {
  {
    const std::lock_guard lock(mutex_);
    ends_ = true;
  }
  changed_.notify_all();
  writer_.join();
}

bool PicturesBehind::take(const std::string& path, const cv::Mat& picture) {
  if (picture.empty()) return false;  // The encoder throws, and the run ends there.
  cv::Mat copy = picture.clone();
  const std::size_t bytes = bytesOf(copy);
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [&] { return waiting_.empty() || bytes_ + bytes <= most_bytes_; });
  bytes_ += bytes;
  waiting_.push_back({path, std::move(copy)});
  changed_.notify_all();
  return true;
}

void PicturesBehind::finish() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return waiting_.empty(); });
}

void PicturesBehind::work() {
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
    if (ends_) return;
    const Waiting& next = waiting_.front();  // Stays where it is while others join behind it.
    lock.unlock();
    write(next.path, next.picture);
    lock.lock();
    bytes_ -= bytesOf(waiting_.front().picture);
    waiting_.pop_front();
    changed_.notify_all();
  }
}

}  // namespace polarline
