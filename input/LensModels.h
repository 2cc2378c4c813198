#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// How a binary calibration file stores the parameters of one lens model.
struct LensModel {
  const char* name;
  std::int32_t code;   ///< `MultiCalibration::model_code` of a file of this model only.
  std::size_t stored;  ///< Floats in the file.
  std::size_t kept;    ///< Floats of these that mean something: Fx, Fy, Cx, Cy and the coefficients.
};

/// The model of that very name, null for any other name; such an entry has no parameter field at all.
const LensModel* findLensModel(const std::string& name);

/// Whether a file of so many cameras usually has this size: one camera or two of any models, or three of which two at
/// least are `Brown`.
bool isKnownFileSize(std::size_t cameras, std::size_t size);
