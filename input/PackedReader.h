#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

/// Reads packed little-endian values one after the other. A read beyond the end gives zeros and leaves the reader
/// failed for good, like a stream.
class PackedReader {
 public:
  explicit PackedReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  /// False once a read went beyond the end.
  explicit operator bool() const { return !failed_; }

  /// The next bytes; empty when fewer are left.
  std::span<const std::uint8_t> take(std::size_t count);

  void skip(std::size_t count) { take(count); }
  std::uint8_t byte();
  std::uint32_t integer();
  float number();

  /// A text up to its NUL in a field of `count` bytes; the whole field without one.
  std::string text(std::size_t count);

 private:
  std::span<const std::uint8_t> bytes_;
  bool failed_ = false;
};
