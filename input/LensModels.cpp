#include "input/LensModels.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<LensModel, 4> kModels = {{
    {.name = "Brown", .code = 1, .stored = 20, .kept = 12, .entry_bytes = 2154},
    {.name = "KB", .code = 2, .stored = 16, .kept = 8, .entry_bytes = 2138},
    {.name = "DS", .code = 3, .stored = 14, .kept = 6, .entry_bytes = 2130},
    {.name = "MEI", .code = 4, .stored = 18, .kept = 10, .entry_bytes = 2146},
}};

constexpr std::size_t kHeaderAndLastByte = 51;
constexpr std::size_t kExtrinsicBytes = 24;

bool isPairSize(std::size_t size) {
  return std::ranges::any_of(kModels, [size](const LensModel& first) {
    return std::ranges::any_of(kModels, [&](const LensModel& second) {
      return size == kHeaderAndLastByte + first.entry_bytes + second.entry_bytes + kExtrinsicBytes;
    });
  });
}

}  // namespace

const LensModel* findLensModel(const std::string& name) {
  const auto* const model = std::ranges::find(kModels, name, &LensModel::name);
  return model == kModels.end() ? nullptr : model;
}

bool isKnownFileSize(std::size_t cameras, std::size_t size) {
  if (cameras == 2) return isPairSize(size);
  if (cameras != 1 && cameras != 3) return false;
  const std::size_t extrinsics = cameras == 3 ? kExtrinsicBytes : 0;
  return std::ranges::any_of(kModels, [&](const LensModel& model) {
    return size == kHeaderAndLastByte + cameras * (model.entry_bytes + extrinsics);
  });
}
