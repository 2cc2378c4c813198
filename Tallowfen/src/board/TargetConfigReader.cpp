#include "Tallowfen/src/board/TargetConfigReader.h"

#include <cstdint>
#include <opencv2/core.hpp>
#include <system_error>
#include <vector>

#include "MorvenKit/ErrorCategories.h"
#include "Tallowfen/src/board/StorageFile.h"
#include "Tallowfen/src/board/TargetConfigKeys.h"
#include "input/KeyValueText.h"
#include "platform/BoundedInput.h"
#include "platform/Files.h"

namespace kestrune {
namespace {

using morvenkit::DetectorErrc;

constexpr const char* kLoading = "[RingTarget::loadConfig]";

bool isRingBoard(std::int32_t board_type) { return board_type == 1 || board_type == 2; }

/// What the fields hold when their keys are absent. Ring boards read their geometry only and keep the rest of this.
RingTargetConfig absentKeys() {
  RingTargetConfig config;
  visitGeometryKeys(config, [](const char*, auto& field) { field = 0; });
  config.detection_id.clear();
  config.step_y = 0.0F;
  return config;
}

RingTargetConfig withBlocksize(RingTargetConfig config) {
  if (config.bin_blocksize == 0) config.bin_blocksize = kDefaultBlocksize;
  return config;
}

/// Values beyond 16 bits wrap: the keys carry no range.
std::vector<std::uint16_t> narrowed(const std::vector<std::int32_t>& values) {
  std::vector<std::uint16_t> ids;
  ids.reserve(values.size());
  for (const std::int32_t value : values) ids.push_back(static_cast<std::uint16_t>(value));
  return ids;
}

/// Fills a field from a node; one that is not there reads as 0.
struct NodeReader {
  cv::FileNode node;

  void operator()(const char* key, std::uint16_t& field) const {
    field = static_cast<std::uint16_t>(static_cast<int>(node[key]));
  }
  void operator()(const char* key, std::int32_t& field) const { field = static_cast<int>(node[key]); }
  void operator()(const char* key, float& field) const { field = static_cast<float>(node[key]); }
};

/// Fills a field from the table; one that is not there stays.
struct TableReader {
  const KeyValueTable* table;

  void operator()(const char* key, std::uint16_t& field) const {
    std::int32_t value = field;
    lookup(*table, key, value);
    field = static_cast<std::uint16_t>(value);
  }
  template <typename T>
  void operator()(const char* key, T& field) const {
    lookup(*table, key, field);
  }
};

void readBigDotKeys(const cv::FileNode& node, RingTargetConfig& config) {
  const NodeReader reader{node};
  visitDetectionKeys(config, reader);
  visitLimitKeys(config, [&](const char* key, float& field) {
    if (!node[key].empty()) reader(key, field);
  });
  std::vector<int> ids;
  node[kDetectionIdKey] >> ids;
  config.detection_id = narrowed(ids);
}

cv::FileNode firstPattern(const cv::FileStorage& storage) {
  const cv::FileNode patterns = storage[kPatternsKey];
  if (patterns.empty()) throw std::system_error(make_error_code(DetectorErrc::kBadConfiguration), "[");
  return patterns[0];
}

void readBigDotKeys(const KeyValueTable& table, RingTargetConfig& config) {
  const TableReader reader{&table};
  visitDetectionKeys(config, reader);
  visitLimitKeys(config, reader);
  std::vector<std::int32_t> ids = {0};
  lookup(table, kDetectionIdKey, ids);
  config.detection_id = narrowed(ids);
}

}  // namespace

RingTargetConfig readStorageConfig(const std::string& path) {
  cv::FileStorage storage;
  if (!openStorage(storage, path, cv::FileStorage::READ, kLoading)) {
    throw std::system_error(make_error_code(DetectorErrc::kBadContent), kLoading);
  }
  const cv::FileNode node = firstPattern(storage);
  RingTargetConfig config = absentKeys();
  visitGeometryKeys(config, NodeReader{node});
  if (config.board_type == kBigDotBoard) {
    readBigDotKeys(node, config);
  } else if (!isRingBoard(config.board_type)) {
    throw std::system_error(make_error_code(DetectorErrc::kBadConfiguration),
                            "[RingTarget::loadConfig:board is not supported");
  }
  return withBlocksize(config);
}

std::string configText(const std::string& config) {
  std::ifstream stream = files::openInput(config, std::ios::in | std::ios::binary);
  // Meant: the path of any other file is taken for the text itself. It holds no key, so the target keeps its defaults.
  if (!stream.is_open() || !config.ends_with("ini")) return config;
  return bounded::readText(stream);
}

std::optional<RingTargetConfig> readTextConfig(const std::string& text) {
  const KeyValueTable table = parseKeyValueText(text);
  RingTargetConfig config = absentKeys();
  visitGeometryKeys(config, TableReader{&table});
  if (config.board_type == kBigDotBoard) {
    readBigDotKeys(table, config);
  } else if (!isRingBoard(config.board_type)) {
    return std::nullopt;
  }
  return withBlocksize(config);
}

}  // namespace kestrune
