#pragma once

#include <string>

/// Numbers for sentences that a person reads: decimals, never an exponent (0.000055, not 5.5e-05), in the classic
/// locale. Only what no length or angle reaches, below 1e-12 and from 1e15 on, keeps one.
namespace plain {

/// With that many significant digits, zeros at the end left out; whole numbers keep all of theirs.
std::string rounded(double value, int digits);

/// "3.67 ± 0.12": the error to two digits, and the value ends where its error does.
std::string withError(double value, double error);

/// With as many digits as read back to the same number.
std::string exact(double value);
std::string exact(float value);

}  // namespace plain
