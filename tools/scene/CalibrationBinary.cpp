#include "tools/scene/CalibrationBinary.h"

#include <algorithm>
#include <bit>
#include <cstddef>

#include "tools/scene/Crc8.h"
#include "tools/scene/SceneFiles.h"

namespace scene {
namespace {

constexpr std::size_t kTableBytes = 2016;

/// Bytes in the order of the file, little-endian.
class ByteRow {
 public:
  void byte(unsigned value) { bytes_.push_back(static_cast<std::uint8_t>(value)); }
  void word(std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) byte((value >> shift) & 0xFFu);
  }
  void number(float value) { word(std::bit_cast<std::uint32_t>(value)); }
  void text(const std::string& value, std::size_t field) {
    for (std::size_t k = 0; k < field; ++k)
      byte(k < value.size() && k + 1 < field ? static_cast<unsigned char>(value[k]) : 0u);
  }
  void fillTo(std::size_t size) { bytes_.resize(std::max(size, bytes_.size())); }
  /// The check byte of everything from `from` on.
  void checkFrom(std::size_t from) { byte(crc8(bytes_.data() + from, bytes_.size() - from)); }
  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  [[nodiscard]] const std::vector<std::uint8_t>& bytes() const { return bytes_; }

 private:
  std::vector<std::uint8_t> bytes_;
};

void writeHeader(ByteRow& row, std::size_t cameras) {
  row.byte(1);
  row.text("SCENE", 10);
  row.text("rendered scene", 32);
  row.word(1);
  row.byte(0);
  row.byte(static_cast<unsigned>(cameras));
  row.byte(0);
}

/// Floats in the file, by model name; none for a name that is not known.
std::size_t parameterFloats(const std::string& model) {
  if (model == "Brown") return 20;
  if (model == "KB") return 16;
  if (model == "DS") return 14;
  return model == "MEI" ? 18 : 0;
}

void writeParameters(ByteRow& row, const BinaryCamera& camera) {
  const std::size_t count = parameterFloats(camera.model);
  if (count == 0) return;
  const std::size_t start = row.size();
  for (std::size_t k = 0; k < count; ++k) row.number(k < camera.parameters.size() ? camera.parameters[k] : 0.0F);
  row.checkFrom(start);
}

void writeTable(ByteRow& row, const PolyTable& table) {
  const std::size_t start = row.size();
  row.byte(static_cast<unsigned>(table.columns));
  row.byte(static_cast<unsigned>(table.rows));
  for (std::size_t cell = 0; cell + 10 <= table.x.size(); cell += 10) {
    for (std::size_t k = 0; k < 10; ++k) row.number(table.x[cell + k]);
    for (std::size_t k = 0; k < 10; ++k) row.number(table.y.at(cell + k));
  }
  row.fillTo(start + kTableBytes);
  row.checkFrom(start);
}

void writeEntry(ByteRow& row, const BinaryCamera& camera, bool with_extrinsics) {
  const std::size_t start = row.size();
  row.text(camera.name, 10);
  row.word(0);
  row.word(static_cast<std::uint32_t>(camera.height));
  row.word(static_cast<std::uint32_t>(camera.width));
  row.text(camera.model, 32);
  writeParameters(row, camera);
  writeTable(row, camera.table);
  row.checkFrom(start);
  if (with_extrinsics) {
    for (const float value : camera.extrinsics) row.number(value);
  }
  row.checkFrom(start);
}

BinaryCamera binaryCamera(const std::string& name, const Camera& camera) {
  BinaryCamera entry{
      name, camera.model == LensModel::kFisheye ? "KB" : "Brown", camera.height, camera.width, {}, camera.table, {}};
  for (const double value : {camera.fx, camera.fy, camera.cx, camera.cy})
    entry.parameters.push_back(static_cast<float>(value));
  const std::size_t coefficients = camera.model == LensModel::kFisheye ? 4 : 8;
  for (std::size_t k = 0; k < coefficients; ++k) entry.parameters.push_back(static_cast<float>(camera.lens.at(k)));
  return entry;
}

}  // namespace

std::vector<std::uint8_t> calibrationBinary(const std::vector<BinaryCamera>& cameras) {
  ByteRow row;
  writeHeader(row, cameras.size());
  for (std::size_t k = 0; k < cameras.size(); ++k) {
    writeEntry(row, cameras[k], cameras.size() >= 3 || (cameras.size() == 2 && k > 0));
  }
  row.checkFrom(0);
  return row.bytes();
}

std::vector<BinaryCamera> binaryCameras(const StereoRig& rig) {
  std::vector<BinaryCamera> cameras{binaryCamera("IR_L", rig.left), binaryCamera("IR_R", rig.right)};
  const Angles& a = rig.right_from_left_angles;
  const Point3& t = rig.right_from_left_translation;
  cameras[1].extrinsics = {static_cast<float>(a.rx), static_cast<float>(a.ry), static_cast<float>(a.rz),
                           static_cast<float>(t.x),  static_cast<float>(t.y),  static_cast<float>(t.z)};
  return cameras;
}

void writeCalibrationBinary(const std::string& path, const std::vector<BinaryCamera>& cameras) {
  const std::vector<std::uint8_t> bytes = calibrationBinary(cameras);
  writeFile(path, std::string(bytes.begin(), bytes.end()));
}

}  // namespace scene
