#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

/// A folder for files that only the bench needs, gone with the object.
class Scratch {
 public:
  Scratch() {
    std::string name = (std::filesystem::temp_directory_path() / "polarline_bench_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder can be made as " + name);
    path_ = name;
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};
