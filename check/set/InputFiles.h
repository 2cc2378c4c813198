#pragma once

#include <memory>
#include <string>
#include <vector>

#include "check/set/InputFile.h"
#include "platform/WholeFile.h"
#include "polarline/check.h"
#include "polarline/set.h"

namespace polarline {

/// The files of a set, pictures left out, as they were at one moment: each is read once, hashed, and copied into the
/// system's temporary folder, so that whoever reads it after that reads what was hashed, though the file itself be
/// changed or away by then. The copies go with the object.
class InputFiles {
 public:
  InputFiles() = default;
  /// Of a completed set.
  explicit InputFiles(const Set& set);

  /// The copy of a file of the set. The file itself where there is none: a file beyond all bounds, which the readers
  /// refuse, or one for which the temporary folder has no place.
  InputFile of(const std::string& path) const;
  /// Every file with its hash.
  const std::vector<SetInput>& hashes() const { return hashes_; }
  /// Whether every file has its copy.
  bool areCopied() const { return copies_.size() == hashes_.size(); }

 private:
  std::string copied(const std::string& content, const SetInput& file);

  std::vector<SetInput> hashes_;
  std::vector<InputFile> copies_;
  std::unique_ptr<whole_file::PartialFolder> folder_;
};

}  // namespace polarline
