#include "input/LensModels.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr std::array<LensModel, 4> kModels = {{
    {.name = "Brown", .code = 1, .stored = 20, .kept = 12},
    {.name = "KB", .code = 2, .stored = 16, .kept = 8},
    {.name = "DS", .code = 3, .stored = 14, .kept = 6},
    {.name = "MEI", .code = 4, .stored = 18, .kept = 10},
}};

constexpr std::array<std::size_t, 4> kSizesOfOne = {2205, 2189, 2181, 2197};
constexpr std::array<std::size_t, 7> kSizesOfTwo = {4383, 4367, 4359, 4375, 4351, 4343, 4335};
constexpr std::array<std::size_t, 4> kSizesOfThree = {6585, 6569, 6561, 6577};

bool contains(std::span<const std::size_t> sizes, std::size_t size) {
  return std::ranges::find(sizes, size) != sizes.end();
}

}  // namespace

const LensModel* findLensModel(const std::string& name) {
  for (const LensModel& model : kModels) {
    if (name == model.name) return &model;
  }
  return nullptr;
}

bool isKnownFileSize(std::size_t cameras, std::size_t size) {
  switch (cameras) {
    case 1:
      return contains(kSizesOfOne, size);
    case 2:
      return contains(kSizesOfTwo, size);
    case 3:
      return contains(kSizesOfThree, size);
    default:
      return false;
  }
}
