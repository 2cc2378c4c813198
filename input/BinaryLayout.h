#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The parameter field of an entry in a binary calibration file. The lens model's name decides how long it is.
struct ParameterField {
  const char* model_name;
  std::int32_t model_code;  ///< `MultiCalibration::model_code` of a file of this model only.
  std::size_t stored;       ///< Floats in the file.
  std::size_t kept;         ///< The first of them, which are read: Fx, Fy, Cx, Cy and the coefficients.
};

/// The field of the model of exactly this name. Null for any other name: such an entry has no parameter field at all.
const ParameterField* findParameterField(const std::string& model_name);

/// Whether a file with this number of cameras usually has this size: one or two cameras of any models, or three of
/// which at least two are `Brown`.
bool isKnownFileSize(std::size_t cameras, std::size_t size);
