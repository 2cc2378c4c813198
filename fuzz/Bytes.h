#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace fuzzing {

/// Takes an input apart. Behind its end come zeros, and a zero stands for the usual choice, so a short input makes a
/// lawful case.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  int next() { return at_ < size_ ? data_[at_++] : 0; }
  int upTo(int most) { return next() % (most + 1); }
  bool onceIn(int times) { return next() % times == times - 1; }
  double around(double usual, double spread) { return usual + spread * static_cast<std::int8_t>(next()) / 128.0; }
  std::string text(std::size_t length) {
    const std::size_t start = at_;
    at_ += std::min(length, size_ - at_);
    return {data_ + start, data_ + at_};
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

}  // namespace fuzzing
