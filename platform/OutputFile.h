#pragma once

#include <fstream>
#include <ios>
#include <string>

/// Looking on while the library writes: it goes on after a failed write, and so does nothing here but remember it.
namespace files {

/// A stream of `openOutput` whose failures the watches of its folder learn when it ends.
class OutputFile : public std::ofstream {
 public:
  /// An empty path opens nothing and fails nothing.
  explicit OutputFile(const std::string& path, std::ios::openmode mode = std::ios::out);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile() override;

 private:
  std::string path_;
};

/// Whether every file that was written below a folder, from any thread, took all its bytes.
class WriteWatch {
 public:
  explicit WriteWatch(std::string folder);
  WriteWatch(const WriteWatch&) = delete;
  WriteWatch& operator=(const WriteWatch&) = delete;
  ~WriteWatch();

  bool failed() const;

 private:
  friend void noteFailedWrite(const std::string& path);

  std::string folder_;
  bool failed_ = false;
};

/// Tells the watches of a path that it was not written as a whole.
void noteFailedWrite(const std::string& path);

}  // namespace files
