#pragma once

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

/// What the targets share: a folder of the process for the input file, silent consoles, and the rule that an exception
/// is a lawful answer to bad input while anything else (a crash, a sanitizer report, a hang) is a finding.
namespace fuzzing {

inline const std::filesystem::path& folder() {
  static const std::filesystem::path path = [] {
    auto made = std::filesystem::temp_directory_path() / ("fuzz" + std::to_string(getpid()));
    std::filesystem::create_directories(made);
    std::atexit([] {
      std::error_code ignored;
      std::filesystem::remove_all(std::filesystem::temp_directory_path() / ("fuzz" + std::to_string(getpid())),
                                  ignored);
    });
    return made;
  }();
  return path;
}

inline std::string writeInput(const std::string& name, const std::uint8_t* data, std::size_t size) {
  const std::string path = (folder() / name).string();
  std::ofstream stream(path, std::ios::binary);
  stream.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  return path;
}

inline void silence() {
  static std::ostringstream sink;
  static const bool done = [] {
    std::cout.rdbuf(sink.rdbuf());
    std::cerr.rdbuf(sink.rdbuf());
    return true;
  }();
  (void)done;
  sink.str({});
}

template <typename Call>
int run(Call call) {
  silence();
  try {
    call();
  } catch (const std::exception&) {
    return 0;
  }
  return 0;
}

}  // namespace fuzzing
