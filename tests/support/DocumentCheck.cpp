#include "support/DocumentCheck.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>
#include <stdexcept>

#include "support/Places.h"

namespace {

constexpr const char* kScript = R"(
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

}  // namespace

DocumentCheck& DocumentCheck::of(const std::string& name) {
  static std::map<std::string, std::unique_ptr<DocumentCheck>> judges;
  std::unique_ptr<DocumentCheck>& judge = judges[name];
  if (!judge)
    judge = std::make_unique<DocumentCheck>(places::inProject("docs/schema/polarline-" + name + "-1.schema.json"));
  return *judge;
}

DocumentCheck::DocumentCheck(const std::string& schema) {
  const std::string script = folder_.write("judge.py", kScript);
  const std::string answers = folder_.file("answers");
  const std::string command = places::python() + " -W ignore '" + script + "' '" + schema + "' > '" + answers + "'";
  if (mkfifo(answers.c_str(), 0600) != 0) throw std::runtime_error("no pipe for answers");
  to_judge_.reset(popen(command.c_str(), "we"));
  from_judge_.reset(std::fopen(answers.c_str(), "r"));
  if (!to_judge_ || !from_judge_) throw std::runtime_error("no Python to judge documents");
}

std::string DocumentCheck::problem(const nlohmann::json& document) {
  const std::string line = document.dump() + "\n";
  if (std::fwrite(line.data(), 1, line.size(), to_judge_.get()) != line.size() || std::fflush(to_judge_.get()) != 0)
    return "the judge is gone";
  std::string answer;
  for (int c = 0; (c = std::fgetc(from_judge_.get())) != EOF && c != '\n';) answer += static_cast<char>(c);
  return answer == "valid" ? "" : "not valid: " + answer;
}

nlohmann::json DocumentCheck::parsed(const std::string& text) {
  nlohmann::json document = nlohmann::json::parse(text, nullptr, false);
  if (document.is_discarded()) {
    ADD_FAILURE() << "no JSON: " << text.substr(0, 200);
    return nlohmann::json::object();
  }
  EXPECT_EQ(problem(document), "");
  return document;
}
