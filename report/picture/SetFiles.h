#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "report/read/Json.h"

namespace polarline {

/// Where the files of a checked set are now: where its document says, or beside the document. A file counts only when
/// its content has the hash that the document tells, so that a document can't bring a file into the page that its
/// writer did not have.
class SetFiles {
 public:
  /// @param path Of the document; empty where it was no file.
  SetFiles(const Json& document, const std::string& path);

  /// The path of the file with a role, "left/3" or "target"; none where it is not there or is another one.
  std::optional<std::string> find(const std::string& role) const;

  /// In words which pictures of the set are not where they were; empty where all are there.
  std::string lostPictures() const;

 private:
  struct Input {
    std::string path;
    std::string sha256;
  };
  bool isThere(const std::string& path) const;
  std::vector<std::string> candidates(const std::string& path) const;

  std::map<std::string, Input> inputs_;
  std::string set_folder_;
  std::string beside_;  ///< Folder of the document.
  bool has_file_;       ///< The document is a file.
  /// Names of files that are there with another content, as far as they were asked for.
  mutable std::set<std::string> changed_;
};

}  // namespace polarline
