#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "input/PolarConfig.h"
#include "platform/OutputFile.h"
#include "platform/WholeFile.h"

namespace polarline {

/// Where a run writes the library's own files: a folder beside the wanted one, whose content moves there when the run
/// is done. Throws `OutputError`, and `InputError` for a name that the library can't reach.
class OutFolder {
 public:
  /// `out` empty: nothing is written.
  explicit OutFolder(const std::string& out);

  /// The result folder that the run is told; empty for none. Also makes the folders that the run would make of such a
  /// name: it takes blanks for the ends of names.
  std::string resultFolder(const PolarConfig& config) const;

  /// Puts everything in its place: files of the same name are replaced, a summary takes the next free number, as if the
  /// run had written there itself.
  void commit();

 private:
  std::filesystem::path out_;
  std::unique_ptr<whole_file::PartialFolder> partial_;
  std::unique_ptr<files::WriteWatch> watch_;
};

}  // namespace polarline
