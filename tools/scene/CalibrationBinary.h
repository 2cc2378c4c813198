#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "tools/scene/Camera.h"
#include "tools/scene/StereoRig.h"

namespace scene {

/// One camera of a binary calibration file.
struct BinaryCamera {
  std::string name;             ///< At most 9 characters.
  std::string model = "Brown";  ///< "Brown", "KB", "DS" or "MEI"; any other name gets no parameter field.
  std::int32_t height = 0;
  std::int32_t width = 0;
  std::vector<float>
      parameters;   ///< Fx, Fy, Cx, Cy, then the model's coefficients; padded with zeros, cut to the field.
  PolyTable table;  ///< At most 25 cells; empty for a camera without tables.
  std::array<float, 6> extrinsics{};  ///< RX, RY, RZ, TX, TY, TZ; only in the file where its form has a place for them.
};

/// The bytes of the main form of a binary calibration file: 50 bytes of header, an entry a camera, a last check byte.
std::vector<std::uint8_t> calibrationBinary(const std::vector<BinaryCamera>& cameras);

/// The two cameras of a rig, named IR_L and IR_R. A polynomial camera is a Brown one with tables.
std::vector<BinaryCamera> binaryCameras(const StereoRig& rig);

/// Writes the bytes to a file. Throws std::runtime_error when that fails.
void writeCalibrationBinary(const std::string& path, const std::vector<BinaryCamera>& cameras);

}  // namespace scene
