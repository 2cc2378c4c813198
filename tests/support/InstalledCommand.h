#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "support/Places.h"
#include "support/TempFolder.h"

/// The command as users have it: installed by CMake, once a process, into a folder of its own.
class InstalledCommand {
 public:
  static const std::string& path() {
    static const InstalledCommand installed;
    return installed.path_;
  }

 private:
  InstalledCommand() {
    namespace fs = std::filesystem;
    fs::permissions(prefix_.path(), fs::perms::others_read | fs::perms::others_exec, fs::perm_options::add);
    const std::string install = "'" + places::cmake() + "' --install '" + places::buildFolder() +
                                "' --component command --prefix '" + prefix_.path().string() + "' >/dev/null";
    if (std::system(install.c_str()) != 0 || !fs::exists(path_)) throw std::runtime_error("not installed: " + path_);
  }

  TempFolder prefix_;
  std::string path_ = prefix_.file(places::installedCommand());
};
