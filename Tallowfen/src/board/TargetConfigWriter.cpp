#include "Tallowfen/src/board/TargetConfigWriter.h"

#include <opencv2/core.hpp>
#include <system_error>

#include "MorvenKit/ErrorCategories.h"
#include "Tallowfen/src/board/StorageFile.h"
#include "Tallowfen/src/board/TargetConfigKeys.h"

namespace kestrune {
namespace {

using morvenkit::DetectorErrc;

constexpr const char* kSaving = "[RingTarget::saveConfig]";

[[noreturn]] void fail(DetectorErrc code) { throw std::system_error(make_error_code(code), kSaving); }

struct NodeWriter {
  cv::FileStorage* storage;

  void operator()(const char* key, float value) const { *storage << key << value; }
  void operator()(const char* key, int value) const { *storage << key << value; }
};

}  // namespace

void writeStorageConfig(const std::string& path, const RingTargetConfig& config) {
  if (!isStorageFile(path)) fail(DetectorErrc::kFileTypeNotSupported);
  cv::FileStorage storage;
  if (!openStorage(storage, path, cv::FileStorage::WRITE, kSaving)) fail(DetectorErrc::kFileNotAccessible);
  storage << kPatternsKey << "["
          << "{";
  visitGeometryKeys(config, NodeWriter{&storage});
  storage << "}"
          << "]";
}

}  // namespace kestrune
