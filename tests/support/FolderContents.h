#pragma once

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

/// The files of a folder and of the folders in it, by their path from there, with their bytes.
inline std::map<std::string, std::string> contentsOf(const std::filesystem::path& folder) {
  std::map<std::string, std::string> contents;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    contents[entry.path().lexically_relative(folder).string()] = bytes.str();
  }
  return contents;
}
