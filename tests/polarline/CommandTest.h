#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

#include "support/CommandRun.h"
#include "support/CopiedSet.h"
#include "support/DocumentCheck.h"

/// The command on a copy of a small rendered set.
struct CommandTest : ::testing::Test {
  CopiedSet set;
  CommandRun::Options options;

  CommandTest() {
    // A failed triangulation shall give its pair up, not end the run.
    set.append("polar.txt", "\ndiscalsave: 0\n");
  }

  CommandRun run(const std::vector<std::string>& arguments) const { return {arguments, options}; }
  CommandRun check(std::vector<std::string> arguments = {}) const {
    arguments.insert(arguments.begin(), {"check", set.folder.string()});
    return run(arguments);
  }

  /// Nothing half is left anywhere below the folder of the test.
  void nothingHalf() const {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(set.parent.path()))
      EXPECT_EQ(entry.path().string().find(".partial-"), std::string::npos) << entry.path();
  }
  /// What was printed, as if the terminal were endlessly wide.
  static std::string unwrapped(const CommandRun& run) { return std::regex_replace(run.out, std::regex("\\n +"), " "); }
  /// Words for people, whatever went wrong.
  static void isInWords(const CommandRun& run) {
    EXPECT_EQ(run.signal, 0);
    const std::string text = run.out + run.err;
    for (const char* mark : {"terminate called", "what():", "Segmentation", "Aborted", "loadsave.cpp", "OpenCV("})
      EXPECT_EQ(text.find(mark), std::string::npos) << text;
  }
  nlohmann::json document(const std::string& name = "r.json") const {
    return DocumentCheck::ofCheck().parsed(set.parent.read(name));
  }
};
