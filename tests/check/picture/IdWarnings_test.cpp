#include "check/picture/IdWarnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

polarline::Detection numbered(const std::vector<int>& ids) {
  polarline::Detection detection;
  detection.found = !ids.empty();
  detection.board.rows = 3;
  detection.board.columns = 4;
  for (const int id : ids) {
    polarline::Dot& dot = detection.dots.emplace_back();
    dot.id = id;
  }
  return detection;
}

struct Case {
  std::vector<int> ids;
  std::vector<std::string> codes;
};

TEST(IdWarnings, JudgeTheIdsOfAPicture) {
  const std::vector<Case> cases = {
      {{}, {}},  // What kept a picture from being numbered is told elsewhere.
      {{0, 1, 2, 3, 4}, {"fewer_than_six"}},
      {{0, 1, 2, 3, 4, 5}, {}},
      {{0, 1, 2, 3, 4, 11}, {}},
      {{0, 1, 2, 3, 4, 12}, {"strange_ids"}},
      {{-1, 1, 2, 3, 4, 5}, {"strange_ids"}},
      {{0, 1, 2, 3, 4, 4}, {"strange_ids"}},
      {{0, 1, 2, 2}, {"strange_ids", "fewer_than_six"}},
  };
  for (const Case& each : cases) {
    polarline::Detection detection = numbered(each.ids);
    warnOfIds(detection);
    std::vector<std::string> codes;
    for (const polarline::Warning& warning : detection.warnings) codes.push_back(warning.code);
    EXPECT_EQ(codes, each.codes) << ::testing::PrintToString(each.ids);
  }
}

TEST(IdWarnings, TellHowManyDotsThereAre) {
  polarline::Detection detection = numbered({0, 1, 2});
  warnOfIds(detection);
  EXPECT_EQ(detection.warnings.at(0).text, "a run measures no picture with fewer than 6 dots; this one has 3");
}

}  // namespace
