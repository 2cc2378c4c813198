#pragma once

#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "support/TempFolder.h"

/// Judges JSON documents by a schema of docs/schema, with Python's jsonschema in a process of its own that lives as
/// long as the tests: it takes a document a line and answers one a line. Stricter than the schema: readers have to pass
/// over new keys, but none may come without its description.
class DocumentCheck {
 public:
  /// The judge of the documents "polarline-NAME/1".
  static DocumentCheck& of(const std::string& name);
  static DocumentCheck& ofCheck() { return of("check"); }

  explicit DocumentCheck(const std::string& schema);

  /// What is wrong with the document; empty for a valid one.
  std::string problem(const nlohmann::json& document);

  /// The document of a text that has to be one. Fails the test otherwise.
  nlohmann::json parsed(const std::string& text);

 private:
  struct ClosePipe {
    void operator()(std::FILE* pipe) const { pclose(pipe); }
  };
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  TempFolder folder_;
  std::unique_ptr<std::FILE, CloseFile> from_judge_;
  std::unique_ptr<std::FILE, ClosePipe> to_judge_;  ///< Closed first: then the judge ends.
};
