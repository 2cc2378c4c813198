#include "tools/scene/CalibrationBinary.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/TempFolder.h"
#include "tools/scene/Crc8.h"
#include "tools/scene/PresetRigs.h"

namespace {

using scene::BinaryCamera;
using scene::calibrationBinary;

BinaryCamera cameraOf(const std::string& model) {
  BinaryCamera camera;
  camera.name = "CAM";
  camera.model = model;
  return camera;
}

float floatAt(const std::vector<std::uint8_t>& bytes, std::size_t offset) {
  float value = 0.0F;
  std::memcpy(&value, bytes.data() + offset, 4);
  return value;
}

std::uint32_t wordAt(const std::vector<std::uint8_t>& bytes, std::size_t offset) {
  std::uint32_t value = 0;
  for (std::size_t k = 4; k > 0; --k) value = value * 256U + bytes[offset + k - 1];
  return value;
}

TEST(CalibrationBinaryCrc8, ByHand) {
  // 0x80 shifts once with the top bit set: 0x31 after the first step, then 0x62, 0xC4, 0xB9, 0x43, 0x86, 0x3D, 0x7A.
  const std::uint8_t top_bit[] = {0x80};
  EXPECT_EQ(scene::crc8(top_bit, 1), 0x7A);
  // 0x01 reaches the top after seven steps, the eighth leaves the polynomial.
  const std::uint8_t low_bit[] = {0x01};
  EXPECT_EQ(scene::crc8(low_bit, 1), 0x31);
  const std::uint8_t zeros[] = {0, 0, 0};
  EXPECT_EQ(scene::crc8(zeros, 3), 0);
}

struct SizeCase {
  std::vector<std::string> models;
  std::size_t size;
};

class CalibrationBinarySize : public testing::TestWithParam<SizeCase> {};

TEST_P(CalibrationBinarySize, IsTheOneOfTheModels) {
  std::vector<BinaryCamera> cameras;
  for (const std::string& model : GetParam().models) cameras.push_back(cameraOf(model));
  EXPECT_EQ(calibrationBinary(cameras).size(), GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(Models, CalibrationBinarySize,
                         testing::Values(SizeCase{{"Brown"}, 2205}, SizeCase{{"KB"}, 2189}, SizeCase{{"DS"}, 2181},
                                         SizeCase{{"MEI"}, 2197}, SizeCase{{"Brown", "Brown"}, 4383},
                                         SizeCase{{"KB", "KB"}, 4351}, SizeCase{{"Brown", "KB"}, 4367},
                                         SizeCase{{"Brown", "DS"}, 4359}, SizeCase{{"Brown", "Brown", "Brown"}, 6585},
                                         SizeCase{{"KB", "KB", "KB"}, 6537}, SizeCase{{"brown"}, 2205 - 81}));

TEST(CalibrationBinary, HeaderAndFirstEntry) {
  const scene::StereoRig rig = scene::brownRig({640, 512, 60});
  const auto bytes = calibrationBinary(scene::binaryCameras(rig));
  EXPECT_NE(bytes[0], 0);
  EXPECT_NE(bytes[1], 0);
  EXPECT_EQ(bytes[48], 2);
  EXPECT_STREQ(reinterpret_cast<const char*>(&bytes[50]), "IR_L");
  EXPECT_EQ(wordAt(bytes, 64), 512U);
  EXPECT_EQ(wordAt(bytes, 68), 640U);
  EXPECT_STREQ(reinterpret_cast<const char*>(&bytes[72]), "Brown");
  EXPECT_EQ(floatAt(bytes, 104), static_cast<float>(rig.left.fx));
  EXPECT_EQ(floatAt(bytes, 104 + 4 * 11), static_cast<float>(rig.left.lens[7]));
}

TEST(CalibrationBinary, SecondEntryHasTheExtrinsics) {
  const scene::StereoRig rig = scene::brownRig({640, 512, 60});
  const auto bytes = calibrationBinary(scene::binaryCameras(rig));
  const std::size_t extrinsics = 50 + 2154 + 54 + 81 + 2016 + 2;
  EXPECT_STREQ(reinterpret_cast<const char*>(&bytes[50 + 2154]), "IR_R");
  EXPECT_EQ(floatAt(bytes, extrinsics), -0.005F);
  EXPECT_EQ(floatAt(bytes, extrinsics + 12), -60.0F);
}

TEST(CalibrationBinary, TableBlockHasCellsAndItsCheckByte) {
  const scene::StereoRig rig = scene::polyRig({640, 400, 60});
  const auto bytes = calibrationBinary(scene::binaryCameras(rig));
  const std::size_t block = 50 + 54 + 81;
  EXPECT_EQ(bytes[block], 6);
  EXPECT_EQ(bytes[block + 1], 4);
  EXPECT_EQ(floatAt(bytes, block + 2), rig.left.table.x[0]);
  EXPECT_EQ(floatAt(bytes, block + 2 + 40), rig.left.table.y[0]);
  EXPECT_EQ(floatAt(bytes, block + 2 + 80), rig.left.table.x[10]);
  EXPECT_EQ(floatAt(bytes, block + 2 + 23 * 80 + 76), rig.left.table.y[239]);
  EXPECT_EQ(bytes[block + 2016], scene::crc8(&bytes[block], 2016));
  EXPECT_NE(bytes[block + 2016], 0);
}

TEST(CalibrationBinary, FisheyeKeepsFourCoefficients) {
  const scene::StereoRig rig = scene::fisheyeRig({640, 400, 60});
  const auto bytes = calibrationBinary(scene::binaryCameras(rig));
  EXPECT_EQ(bytes.size(), 4351U);
  EXPECT_STREQ(reinterpret_cast<const char*>(&bytes[72]), "KB");
  EXPECT_EQ(floatAt(bytes, 104 + 4 * 7), static_cast<float>(rig.left.lens[3]));
  EXPECT_EQ(floatAt(bytes, 104 + 4 * 8), 0.0F);
}

TEST(CalibrationBinary, FileHoldsTheBytes) {
  const TempFolder folder;
  scene::writeCalibrationBinary(folder.file("c.bin"), {cameraOf("MEI"), cameraOf("Brown")});
  EXPECT_EQ(folder.read("c.bin").size(), 4375U);
}

TEST(CalibrationBinary, AFileThatCannotBeWrittenThrows) {
  EXPECT_THROW(scene::writeCalibrationBinary("/no/such/folder/c.bin", {cameraOf("KB")}), std::runtime_error);
}

}  // namespace
