#include "report/read/ReadCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MadeDocument.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

TEST(ReadCheckPoints, StandApartFromTheRest) {
  Check made = made_document::check();
  made.pairs[0] = hand_made::refined(made.pairs[0], {0.05}, {});
  made.pairs[0].refined->points.id = {7};
  const ReadCheck check = made_document::read(made);
  ASSERT_EQ(check.pairs.size(), 1U);
  EXPECT_EQ(check.pairs[0].points.id.size(), 12U);
  EXPECT_EQ(check.pairs[0].points.dy[11], 0.11);
  EXPECT_EQ(check.pairs[0].refined->id, std::vector<std::int32_t>{7});
  EXPECT_FALSE(check.json["pairs"][0].contains("points"));
  EXPECT_FALSE(check.json["pairs"][0]["refined"].contains("points"));
}

TEST(ReadCheckRest, IsTheDocument) {
  Json document = made_document::json(made_document::check());
  const ReadCheck check = made_document::read(made_document::check());
  document["pairs"][0].erase("points");
  EXPECT_EQ(check.json.dump(), document.dump());
}

TEST(ReadCheckFailure, NamesTheFile) {
  try {
    readCheck({"{\"schema\": \"polarline-scene/1\"}", "a/r.json"});
    FAIL() << "was taken";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "a/r.json: schema: found \"polarline-scene/1\", wanted 'polarline-check/1'");
  }
}

TEST(ReadCheckFailure, NamesThePairOfSpoiledPoints) {
  Json document = made_document::json(made_document::check());
  document["pairs"][0]["points"]["dy"].push_back(1.0);
  try {
    readCheck({document.dump(), ""});
    FAIL() << "was taken";
  } catch (const InputError& error) {
    EXPECT_STREQ(error.what(), "document: pairs[0].points.dy: found 13 entries, wanted 12 as in id");
  }
}

}  // namespace
}  // namespace polarline
