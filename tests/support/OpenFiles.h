#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

/// Descriptors that this process has open (Linux).
inline std::size_t openFiles() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(open), end(open)));
}
