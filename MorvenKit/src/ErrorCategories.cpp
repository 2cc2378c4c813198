#include "MorvenKit/ErrorCategories.h"

#include <array>
#include <cstddef>

namespace kestrune::morvenkit {

namespace {

constexpr int kFirstCode = 1;
constexpr int kLastCode = 7;
constexpr std::size_t kCodes = kLastCode - kFirstCode + 1;

constexpr const char* kBadConfigurationText = "bad configuration";
constexpr const char* kBadContentText = "bad content (format) in file";
constexpr const char* kInternalText = "internal error";
constexpr const char* kUndefinedText = "(undefined)";

// The first category knows six conditions; its seventh code is as undefined as any other.
constexpr std::array<const char*, kCodes> kNormalizedTexts = {"wrong variable input to function",
                                                              "object uninitialized before using",
                                                              kBadConfigurationText,
                                                              "input/output error about file",
                                                              kBadContentText,
                                                              kInternalText,
                                                              kUndefinedText};

constexpr std::array<const char*, kCodes> kDetectorTexts = {
    "file not accessible", "file type not supported",  kBadContentText,
    kBadConfigurationText, "wrong input image format", "detector uninitialized before using",
    kInternalText};

constexpr std::array<int, kCodes> kNormalizedOfDetector = {4, 1, 5, 3, 1, 2, 6};

bool isKnown(int code) { return code >= kFirstCode && code <= kLastCode; }

std::size_t position(int code) { return static_cast<std::size_t>(code - kFirstCode); }

}  // namespace

const NormalizedErrorCategory& NormalizedErrorCategory::instance() {
  static const NormalizedErrorCategory category;
  return category;
}

const char* NormalizedErrorCategory::name() const noexcept { return "NormalizedError"; }

std::string NormalizedErrorCategory::message(int code) const {
  return isKnown(code) ? kNormalizedTexts.at(position(code)) : kUndefinedText;
}

const DetectorErrcCategory& DetectorErrcCategory::instance() {
  static const DetectorErrcCategory category;
  return category;
}

const char* DetectorErrcCategory::name() const noexcept { return "ImageDetector"; }

std::string DetectorErrcCategory::message(int code) const {
  return isKnown(code) ? kDetectorTexts.at(position(code)) : kUndefinedText;
}

std::error_condition DetectorErrcCategory::default_error_condition(int code) const noexcept {
  if (!isKnown(code)) return {0, std::generic_category()};
  return {kNormalizedOfDetector[position(code)], NormalizedErrorCategory::instance()};
}

std::error_code make_error_code(DetectorErrc code) noexcept {
  return {static_cast<int>(code), DetectorErrcCategory::instance()};
}

}  // namespace kestrune::morvenkit
