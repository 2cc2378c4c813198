#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

#include "CheckedSet.h"
#include "ExportRun.h"
#include "support/FolderContents.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

TEST(CheckPairs, AreToldOneByOneAndKeepTheirPointsOnRequest) {
  const CopiedSet set;
  CheckOptions options;
  std::vector<std::size_t> told;
  options.on_start = [&](const Check& check) {
    EXPECT_EQ(check.board.cols, 9);
    EXPECT_TRUE(told.empty());
  };
  options.on_pair = [&](const PairCheck& pair, std::size_t count) {
    EXPECT_EQ(count, 2U);
    EXPECT_FALSE(pair.points.id.empty());
    told.push_back(pair.index);
  };
  EXPECT_FALSE(set.check(options).pairs[0].points.id.empty());
  options.keep_points = false;
  told.clear();
  EXPECT_TRUE(set.check(options).pairs[0].points.id.empty());
  EXPECT_THAT(told, ElementsAre(0, 1));
}

TEST(CheckRun, EndsWhenItIsToldTo) {
  const CopiedSet set;
  CheckOptions options;
  int asked = 0;
  options.go_on = [&] { return ++asked < 2; };
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 130);
  EXPECT_EQ(check.status.name, "interrupted");
  EXPECT_EQ(check.pairs.size(), 1U);
  EXPECT_EQ(check.verdict, Verdict::kError);
}

TEST(CheckVerdict, IsWhatTheLimitsSay) {
  const CopiedSet set;
  const auto judged = [&](const std::vector<std::string>& limits) {
    CheckOptions options;
    options.limits = limits;
    const Check check = set.check(options);
    documentIsValid(check);
    return check;
  };
  EXPECT_EQ(judged({}).verdict, Verdict::kPass);
  EXPECT_EQ(judged({"tri_rms<=9", "finished>=2"}).status.exit_code, 0);
  const Check failed = judged({"tri_rms<=9", "finished>=3"});
  EXPECT_EQ(failed.verdict, Verdict::kFail);
  EXPECT_EQ(failed.status.exit_code, 1);
  EXPECT_THAT(judged({"tri_rm<=9"}).status.text, HasSubstr("did you mean tri_rms"));
  set.write("limits.txt", "tri_rms<=0\n");
  EXPECT_EQ(judged({}).verdict, Verdict::kFail);
  EXPECT_EQ(judged({}).limits.at(0).text, "tri_rms<=0");
}

TEST(CheckId, ComesFromContentsOnly) {
  const CopiedSet one;
  const CopiedSet other(MemoryRun::twoPairs(), "under another name");
  const std::string id = one.check().id;
  EXPECT_EQ(id.size(), 64U);
  EXPECT_EQ(other.check().id, id);
  EXPECT_EQ(other.check().name, "under another name");
  for (const auto& entry : std::filesystem::directory_iterator(other.folder)) {
    const std::string name = entry.path().filename().string();
    if (name == "calib.bin" || name == "target.json" || name == "target.yml") continue;  // Not read.
    const std::string content = other.read(name);
    other.append(name, "\n");
    EXPECT_NE(other.check().id, id) << name;
    other.write(name, content);
  }
  EXPECT_EQ(other.check().id, id);
}

TEST(CheckOut, IsTheExportsFilesByteForByte) {
  for (const char* name : {"out", "out with blanks"}) {
    const CopiedSet set;
    switchAllOn(set);
    set.append("polar.txt", "savepolarline: 1\nevaluation: 1\n");
    const std::string exported = set.parent.file("exported");
    std::filesystem::create_directory(exported);
    export_run::of(set, exported);
    CheckOptions options;
    options.out = set.parent.file(name);
    EXPECT_EQ(set.check(options).status.text, "");
    auto wanted = contentsOf(exported);
    EXPECT_GT(wanted.size(), 8U);
    EXPECT_EQ(contentsOf(options.out), wanted);
    set.check(options);  // Again: the summary takes the next free number.
    wanted["align_data_1.csv"] = wanted["align_data_0.csv"];
    EXPECT_EQ(contentsOf(options.out), wanted);
  }
}

TEST(CheckOut, IsTheExportsFilesWhereAPairEndedTheRun) {
  const CopiedSet set;
  switchAllOn(set);
  set.append("polar.txt", "discalsave: 1\n");
  set.blank("right_1.png");
  const std::string exported = set.parent.file("exported");
  std::filesystem::create_directory(exported);
  export_run::of(set, exported);
  CheckOptions options;
  options.out = set.parent.file("out");
  const Check check = set.check(options);
  EXPECT_EQ(check.finished(), 1U);
  EXPECT_EQ(check.status.exit_code, 2) << check.status.text;
  EXPECT_GT(contentsOf(exported).size(), 4U);
  EXPECT_EQ(contentsOf(options.out), contentsOf(exported));
}

TEST(CheckOut, IsTheExportsFilesWhereAnExceptionEndedTheRun) {
  const CopiedSet set;
  switchAllOn(set);
  set.append("polar.txt", "savepolarline: 1\nevaluation: 1\n");
  cv::Mat colour;
  for (const char* name : {"left_1.png", "right_1.png"}) {
    cv::cvtColor(set.picture(name), colour, cv::COLOR_GRAY2BGR);
    set.write(name, colour);
  }
  const std::string exported = set.parent.file("exported");
  std::filesystem::create_directory(exported);
  EXPECT_THROW(export_run::of(set, exported), cv::Exception) << "the residuals want grey pictures";
  CheckOptions options;
  options.out = set.parent.file("out");
  const Check check = set.check(options);
  EXPECT_EQ(check.status.name, "exception");
  EXPECT_EQ(check.finished(), 1U);
  EXPECT_GT(contentsOf(exported).size(), 8U);
  EXPECT_EQ(contentsOf(options.out), contentsOf(exported));
}

TEST(CheckOut, IsNothingWhereAnExceptionCameBeforeTheFirstFigure) {
  const CopiedSet set;
  switchAllOn(set);
  cv::Mat colour;
  for (const char* name : {"left_0.png", "right_0.png"}) {
    cv::cvtColor(set.picture(name), colour, cv::COLOR_GRAY2BGR);
    set.write(name, colour);
  }
  CheckOptions options;
  options.out = set.parent.file("out");
  EXPECT_EQ(set.check(options).status.exit_code, 3);
  EXPECT_FALSE(set.parent.has("out"));
}

TEST(CheckName, IsThatOfTheFolder) {
  const CopiedSet set;
  EXPECT_EQ(set.check().name, "set");
  Set named = set.set();
  named.folder += "/.";
  EXPECT_EQ(check(named).name, "set");
}

TEST(CheckLimitNames, AreKnownBeforeTheRun) { EXPECT_NO_THROW(requireLimit("given_up<=0")); }

}  // namespace
}  // namespace polarline
