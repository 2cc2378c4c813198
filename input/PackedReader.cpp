#include "input/PackedReader.h"

#include <algorithm>
#include <bit>

std::span<const std::uint8_t> PackedReader::take(std::size_t count) {
  failed_ = failed_ || count > bytes_.size();
  if (failed_) return {};
  const std::span<const std::uint8_t> taken = bytes_.first(count);
  bytes_ = bytes_.subspan(count);
  return taken;
}

std::uint8_t PackedReader::byte() {
  const std::span<const std::uint8_t> taken = take(1);
  return taken.empty() ? std::uint8_t{0} : taken.front();
}

std::uint32_t PackedReader::integer() {
  const std::span<const std::uint8_t> taken = take(4);
  std::uint32_t value = 0;
  for (std::size_t k = taken.size(); k > 0; --k) value = (value << 8U) | taken[k - 1];
  return value;
}

float PackedReader::number() { return std::bit_cast<float>(integer()); }

std::string PackedReader::text(std::size_t count) {
  const std::span<const std::uint8_t> taken = take(count);
  return {taken.begin(), std::find(taken.begin(), taken.end(), std::uint8_t{0})};
}
