#include "board/print/PngDensity.h"

#include <boost/crc.hpp>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace boards {
namespace {

constexpr double kMetresPerInch = 0.0254;
constexpr std::size_t kBehindHeader = 33;  ///< The signature's 8 bytes and the IHDR chunk's 25.

void appendNumber(std::string& text, std::uint32_t number) {
  for (const unsigned shift : {24U, 16U, 8U, 0U}) text += static_cast<char>((number >> shift) & 0xFFU);
}

}  // namespace

void enterDensity(std::string& png, double dpi) {
  const auto per_metre = static_cast<std::uint32_t>(std::lround(dpi / kMetresPerInch));
  std::string content = "pHYs";
  appendNumber(content, per_metre);
  appendNumber(content, per_metre);
  content += '\1';  // The unit is the metre.
  boost::crc_32_type checksum;
  checksum.process_bytes(content.data(), content.size());
  std::string chunk;
  appendNumber(chunk, static_cast<std::uint32_t>(content.size() - 4));
  chunk += content;
  appendNumber(chunk, checksum.checksum());
  png.insert(kBehindHeader, chunk);
}

}  // namespace boards
