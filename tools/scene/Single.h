#pragma once

namespace scene {

/// The nearest number that single precision holds: the numbers of a calibration are such, so that the JSON and the
/// binary file tell the same.
inline double single(double value) { return static_cast<double>(static_cast<float>(value)); }

}  // namespace scene
