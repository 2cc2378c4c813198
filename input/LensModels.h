#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// How a binary calibration file stores the parameters of one lens model.
struct LensModel {
  const char* name;
  std::int32_t code;        ///< `MultiCalibration::model_code` of a file of this model only.
  std::size_t stored;       ///< Floats in the file.
  std::size_t kept;         ///< Floats of these that mean something: Fx, Fy, Cx, Cy and the coefficients.
  std::size_t entry_bytes;  ///< Size of a camera entry in the main form, without the extrinsic floats.
};

/// The model of that very name, null for any other name; such an entry has no parameter field at all.
const LensModel* findLensModel(const std::string& name);

/// Whether cameras of known models make a file of this size. Sizes are known for one camera, two cameras of any two
/// models and three cameras of one model.
bool isKnownFileSize(std::size_t cameras, std::size_t size);
