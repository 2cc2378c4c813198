#pragma once

#include <cstdio>
#include <memory>

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
/// A file that is closed where its handle ends; empty where it could not be opened.
using FileHandle = std::unique_ptr<std::FILE, CloseFile>;
