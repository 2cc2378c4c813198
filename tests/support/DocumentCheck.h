#pragma once

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "support/TempFolder.h"

/// Judges JSON documents by a schema of docs/schema, with Python's jsonschema in a process of its own that lives as
/// long as the tests: it takes a document a line and answers one a line. Stricter than the schema: readers have to pass
/// over new keys, but none may come without its description.
class DocumentCheck {
 public:
  /// The judge of the documents "polarline-NAME/1".
  static DocumentCheck& of(const std::string& name) {
    static std::map<std::string, std::unique_ptr<DocumentCheck>> judges;
    std::unique_ptr<DocumentCheck>& judge = judges[name];
    if (!judge) judge = std::make_unique<DocumentCheck>(SCHEMA_FOLDER "/polarline-" + name + "-1.schema.json");
    return *judge;
  }
  static DocumentCheck& ofCheck() { return of("check"); }

  explicit DocumentCheck(const std::string& schema) {
    const std::string script = folder_.write("judge.py", kScript);
    const std::string answers = folder_.file("answers");
    const std::string command = PYTHON3 " -W ignore '" + script + "' '" + schema + "' > '" + answers + "'";
    std::filesystem::path pipe(answers);
    if (mkfifo(pipe.c_str(), 0600) != 0) throw std::runtime_error("no pipe for answers");
    to_judge_.reset(popen(command.c_str(), "we"));
    from_judge_.reset(std::fopen(answers.c_str(), "r"));
    if (!to_judge_ || !from_judge_) throw std::runtime_error("no Python to judge documents");
  }

  /// What is wrong with the document; empty for a valid one.
  std::string problem(const nlohmann::json& document) {
    const std::string line = document.dump() + "\n";
    if (std::fwrite(line.data(), 1, line.size(), to_judge_.get()) != line.size() || std::fflush(to_judge_.get()) != 0)
      return "the judge is gone";
    std::string answer;
    for (int c = 0; (c = std::fgetc(from_judge_.get())) != EOF && c != '\n';) answer += static_cast<char>(c);
    return answer == "valid" ? "" : "not valid: " + answer;
  }

  /// The document of a text that has to be one. Fails the test otherwise.
  nlohmann::json parsed(const std::string& text) {
    nlohmann::json document = nlohmann::json::parse(text, nullptr, false);
    if (document.is_discarded()) {
      ADD_FAILURE() << "no JSON: " << text.substr(0, 200);
      return nlohmann::json::object();
    }
    EXPECT_EQ(problem(document), "");
    return document;
  }

 private:
  static constexpr const char* kScript = R"(
import json, sys, jsonschema
schema = json.load(open(sys.argv[1], encoding="utf-8"))
def forbid_more(part):
    if isinstance(part, dict) and isinstance(part.get("properties"), dict):
        part.setdefault("additionalProperties", False)
    for each in part.values() if isinstance(part, dict) else part if isinstance(part, list) else []:
        forbid_more(each)
forbid_more(schema)
jsonschema.Draft202012Validator.check_schema(schema)
judge = jsonschema.Draft202012Validator(schema)
sys.stdout = open(1, "w", buffering=1)
for line in sys.stdin:
    error = jsonschema.exceptions.best_match(judge.iter_errors(json.loads(line)))
    print("valid" if error is None else f"{error.json_path}: {error.message}"[:300].replace("\n", " "))
)";

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
