#include "input/BinaryLayout.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr std::array<ParameterField, 4> kFields = {{
    {.model_name = "Brown", .model_code = 1, .stored = 20, .kept = 12},
    {.model_name = "KB", .model_code = 2, .stored = 16, .kept = 8},
    {.model_name = "DS", .model_code = 3, .stored = 14, .kept = 6},
    {.model_name = "MEI", .model_code = 4, .stored = 18, .kept = 10},
}};

/// Sizes of a file by its number of cameras: header, entries, last byte.
constexpr std::array<std::size_t, 4> kSizesOfOne = {2205, 2189, 2181, 2197};
constexpr std::array<std::size_t, 7> kSizesOfTwo = {4383, 4367, 4359, 4375, 4351, 4343, 4335};
constexpr std::array<std::size_t, 4> kSizesOfThree = {6585, 6569, 6561, 6577};

bool contains(std::span<const std::size_t> sizes, std::size_t size) {
  return std::ranges::find(sizes, size) != sizes.end();
}

}  // namespace

const ParameterField* findParameterField(const std::string& model_name) {
  for (const ParameterField& field : kFields) {
    if (model_name == field.model_name) return &field;
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
