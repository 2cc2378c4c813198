#include "platform/BoundedInput.h"

#include <array>
#include <stdexcept>

namespace bounded {
namespace {

void requireLength(std::size_t length) {
  if (length > kLongestText) {
    throw std::length_error("an input text of more than " + std::to_string(kLongestText) + " characters");
  }
}

}  // namespace

bool nextLine(std::istream& stream, std::string& line) {
  line.clear();
  std::array<char, 4096> block{};
  for (bool is_full = true; is_full;) {
    stream.getline(block.data(), block.size());
    const auto taken = static_cast<std::size_t>(stream.gcount());
    line.append(block.data(), stream.good() ? taken - 1 : taken);
    requireLength(line.size());
    is_full = taken + 1 == block.size() && !stream.eof() && stream.fail();
    if (is_full) stream.clear();  // No failure of the stream: the block was full.
  }
  return !stream.fail();
}

std::string readText(std::istream& stream) {
  std::string text;
  std::array<char, 4096> block{};
  do {
    stream.read(block.data(), block.size());
    text.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    requireLength(text.size());
  } while (stream);
  return text;
}

}  // namespace bounded
