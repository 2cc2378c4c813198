#pragma once

#include <array>
#include <cstdio>
#include <string>

#include "support/Places.h"
#include "tests/support/TempFolder.h"

/// What is wrong with a document by the schema of that name in docs/schema; empty when nothing is.
inline std::string schemaProblem(const std::string& document, const std::string& schema) {
  const TempFolder folder;
  const std::string path = folder.write("document.json", document);
  const std::string script = folder.write("check.py",
                                          "import json, sys, jsonschema\n"
                                          "schema = json.load(open(sys.argv[1]))\n"
                                          "jsonschema.Draft202012Validator.check_schema(schema)\n"
                                          "validator = jsonschema.Draft202012Validator(schema)\n"
                                          "for error in validator.iter_errors(json.load(open(sys.argv[2]))):\n"
                                          "    print(error.json_path, error.message[:200])\n");
  const std::string call = places::python() + " -B '" + script + "' '" + places::inProject("docs/schema/" + schema) +
                           "' '" + path + "' 2>&1";
  std::FILE* const pipe = popen(call.c_str(), "r");
  if (pipe == nullptr) return "Python can't be started";
  std::string problem;
  std::array<char, 512> part{};
  while (std::fgets(part.data(), part.size(), pipe) != nullptr) problem += part.data();
  if (pclose(pipe) != 0 && problem.empty()) problem = "Python failed";
  return problem;
}
