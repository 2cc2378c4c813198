#pragma once

#include <string>
#include <system_error>

namespace kestrune::morvenkit {

/// Codes of the detector library. A `std::error_code` of one compares equal to the condition that
/// `DetectorErrcCategory` maps it to.
enum class DetectorErrc {
  kFileNotAccessible = 1,
  kFileTypeNotSupported = 2,
  kBadContent = 3,
  kBadConfiguration = 4,
  kWrongImageFormat = 5,
  kUninitialized = 6,
  kInternal = 7,
};

/// Coarse conditions that detector codes map to: 1 wrong input, 2 not initialised, 3 configuration, 4 file access, 5
/// file content, 6 internal. Any other code has no meaning. `instance()` is the only object: categories compare by
/// address.
class NormalizedErrorCategory : public std::error_category {
 public:
  static const NormalizedErrorCategory& instance();
  const char* name() const noexcept override;
  std::string message(int code) const override;

 private:
  NormalizedErrorCategory() = default;
};

/// Category of `DetectorErrc`; `instance()` is the only object.
class DetectorErrcCategory : public std::error_category {
 public:
  static const DetectorErrcCategory& instance();
  const char* name() const noexcept override;
  std::string message(int code) const override;
  std::error_condition default_error_condition(int code) const noexcept override;

 private:
  DetectorErrcCategory() = default;
};

std::error_code make_error_code(DetectorErrc code) noexcept;

}  // namespace kestrune::morvenkit

template <>
struct std::is_error_code_enum<kestrune::morvenkit::DetectorErrc> : std::true_type {};
