#pragma once

/// Error text of every run whose images are not usable; the frame run uses it for missing tables, too.
inline constexpr const char* kReadImageError = "Read image Error!";
