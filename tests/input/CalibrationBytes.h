#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Writes binary calibration files byte by byte.
namespace calibration_bytes {

inline std::uint8_t crcOf(const std::string& bytes) {
  unsigned crc = 0;
  for (const char c : bytes) {
    crc ^= static_cast<std::uint8_t>(c);
    for (int bit = 0; bit < 8; ++bit) crc = ((crc << 1U) ^ ((crc >> 7U) * 0x31U)) & 0xFFU;
  }
  return static_cast<std::uint8_t>(crc);
}

inline std::string byteText(unsigned value) { return {static_cast<char>(value)}; }

inline std::string integerText(std::uint32_t value) {
  return byteText(value & 255U) + byteText(value >> 8U & 255U) + byteText(value >> 16U & 255U) + byteText(value >> 24U);
}

inline std::string numberText(float value) { return integerText(std::bit_cast<std::uint32_t>(value)); }

inline std::string field(std::string text, std::size_t size) {
  text.resize(size, '\0');
  return text;
}

/// A camera entry; parameter k of the file is `first_parameter` + k.
struct Camera {
  std::string model = "Brown";
  std::size_t stored_parameters = 20;
  std::string name = "cam";
  std::uint32_t value = 77;
  std::uint32_t height = 1200;
  std::uint32_t width = 1920;
  float first_parameter = 1.0F;
  std::uint8_t poly_nx = 6;
  std::uint8_t poly_ny = 4;
  float first_coefficient = 1000.0F;  ///< Coefficient k of the block, 20 a cell, is this + k.
  std::array<float, 6> extrinsics = {0.1F, 0.2F, 0.3F, -60.0F, 0.5F, 0.25F};
};

inline Camera brown() { return {}; }
inline Camera kb() { return {.model = "KB", .stored_parameters = 16}; }
inline Camera ds() { return {.model = "DS", .stored_parameters = 14}; }
inline Camera mei() { return {.model = "MEI", .stored_parameters = 18}; }

inline std::string cellText(const Camera& camera, std::size_t cell) {
  std::string text;
  for (std::size_t k = 0; k < 20; ++k) {
    text += numberText(camera.first_coefficient + static_cast<float>(cell * 20 + k));
  }
  return text;
}

inline std::string plainBlock(const Camera& camera) {
  std::string block = byteText(camera.poly_nx) + byteText(camera.poly_ny);
  for (std::size_t cell = 0; cell < 25; ++cell) block += cellText(camera, cell);
  return field(block, 2016);
}

inline std::string tabledBlock(const Camera& camera) {
  std::string block = byteText(camera.poly_nx) + byteText(camera.poly_ny);
  for (std::size_t cell = 0; cell < 24; ++cell) {
    block += cellText(camera, cell);
    block += byteText(crcOf(cellText(camera, cell)));
  }
  return field(block, 2016);
}

inline std::string entryStart(const Camera& camera) {
  std::string text = field(camera.name, 10) + integerText(camera.value) + integerText(camera.height) +
                     integerText(camera.width) + field(camera.model, 32);
  for (std::size_t k = 0; k < camera.stored_parameters; ++k) {
    text += numberText(camera.first_parameter + static_cast<float>(k));
  }
  return camera.stored_parameters == 0 ? text : text + byteText(0xA1);
}

inline std::string entryEnd(const Camera& camera, bool has_extrinsics) {
  std::string text = byteText(0xA2);
  for (const float value : camera.extrinsics) text += has_extrinsics ? numberText(value) : std::string();
  return text + byteText(0xA3);
}

inline std::string header(std::uint8_t format_byte, std::size_t cameras) {
  return byteText(format_byte) + field("short", 10) + field("a longer text", 32) + integerText(0x01020304) +
         byteText(0x47) + byteText(static_cast<unsigned>(cameras)) + byteText(0x49);
}

inline bool hasExtrinsics(std::size_t cameras, std::size_t index) {
  return cameras > 2 || (cameras == 2 && index == 1);
}

inline std::string mainForm(const std::vector<Camera>& cameras) {
  std::string text = header(1, cameras.size());
  for (std::size_t k = 0; k < cameras.size(); ++k) {
    const std::string block = plainBlock(cameras[k]);
    text += entryStart(cameras[k]) + block + byteText(crcOf(block));
    text += entryEnd(cameras[k], hasExtrinsics(cameras.size(), k));
  }
  return text + byteText(0xA4);
}

/// The tabled form without its filler and last CRC-8.
inline std::string tabledEntries(const std::vector<Camera>& cameras) {
  std::string text = header(0, cameras.size());
  for (std::size_t k = 0; k < cameras.size(); ++k) {
    text += entryStart(cameras[k]) + tabledBlock(cameras[k]);
    text += entryEnd(cameras[k], hasExtrinsics(cameras.size(), k));
  }
  return text;
}

inline std::string sealTabled(const std::string& entries) {
  const std::string body = field(entries, 21090);
  return body + byteText(crcOf(body));
}

}  // namespace calibration_bytes
