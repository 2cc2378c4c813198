#include "report/view/CheckView.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "MadeDocument.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

using made_document::noPictures;
using made_document::Pictures;

PairPictures somePictures(std::size_t /*place*/) {
  const PagePicture picture{"data:", {40, 30}};
  return {picture, picture, std::nullopt};
}

Json viewOf(const Check& check, std::size_t budget = 1000000, Pictures* pictures = somePictures) {
  return Json::parse(made_document::view(check, {"title", false, budget}, pictures).data);
}

Check manyPairs() {
  Check check = made_document::check();
  check.pairs.clear();
  for (std::size_t k = 0; k < 16; ++k) check.pairs.push_back(made_document::pair(k + 5, k == 11 ? 9.0 : 0.1));
  check.summary = {made_document::summary("dy_means", 0.1, 0.01, 16)};
  return check;
}

TEST(CheckViewWords, AreThoseOfTheCommand) {
  const Json view = viewOf(made_document::check());
  EXPECT_EQ(view["title"], "title");
  EXPECT_EQ(view["headline"], "PASS: the limit holds.");
  EXPECT_EQ(view["worst_pair_text"], "Worst pair: 0 (dy_means 0.0550 pixels).");
  EXPECT_EQ(view["refined_text"], "");
  EXPECT_EQ(view["fisheye_text"], "");
  EXPECT_EQ(view["main_figures"], Json::parse(R"(["dy_means"])"));
  EXPECT_EQ(view["left_out"], "");
}

TEST(CheckViewWords, OfAGivenUpPairNameItsStatus) {
  Check check = made_document::check();
  check.pairs.push_back(hand_made::givenUp(made_document::pair(1, 0.1)));
  check.pairs[1].reason.code = -9;
  const Json view = viewOf(check);
  EXPECT_TRUE(view["given_up"][0].is_null());
  EXPECT_EQ(view["given_up"][1]["name"], "few_dots_in_both");
  EXPECT_EQ(view["finished_text"], "1 of 2 pairs finished.");
}

TEST(CheckViewWords, OfTheStatusSayWhereItsCommandRuns) {
  Check check = made_document::check();
  check.status.advice = "See 'polarline detect /a/b/left_0.png --target /a/b/target.ini'.";
  EXPECT_EQ(viewOf(check)["document"]["status"]["advice"],
            "See 'polarline detect left_0.png --target target.ini'. Run it in the set's folder.");
}

TEST(CheckViewFirstPair, IsTheWorst) {
  EXPECT_EQ(viewOf(manyPairs())["first_pair"], 11) << "place, not index";
  Check check = manyPairs();
  check.summary.clear();
  check.pairs[0] = hand_made::givenUp(check.pairs[0]);
  EXPECT_EQ(viewOf(check)["first_pair"], 1) << "the first finished";
  check.pairs.resize(1);
  EXPECT_EQ(viewOf(check)["first_pair"], 0);
  check.pairs.clear();
  EXPECT_TRUE(viewOf(check)["first_pair"].is_null());
}

TEST(CheckViewDocument, IsWithoutPoints) {
  Json document = made_document::json(made_document::check());
  document["pairs"][0].erase("points");
  EXPECT_EQ(viewOf(made_document::check())["document"].dump(), document.dump());
}

TEST(CheckViewBudget, KeepsTheWorstAndSaysWhatIsLeftOut) {
  const std::size_t whole = made_document::view(manyPairs(), {"", false, 10000000}, somePictures).data.size();
  const Json view = viewOf(manyPairs(), whole / 2);
  const Json& details = view["details"];
  ASSERT_EQ(details.size(), 16U);
  EXPECT_FALSE(details[11].is_null());
  EXPECT_FALSE(details[0].is_null());
  EXPECT_FALSE(details[8].is_null());
  EXPECT_TRUE(details[15].is_null());
  std::size_t left_out = 0;
  for (const Json& each : details) left_out += each.is_null() ? 1 : 0;
  EXPECT_THAT(view["left_out"].get<std::string>(),
              HasSubstr("Dots and pictures of " + std::to_string(left_out) + " of 16 pairs were left out"));
  EXPECT_LE(view.dump().size(), whole / 2 + 2000);
  EXPECT_EQ(viewOf(manyPairs(), 0)["document"]["pairs"].size(), 16U) << "the tables have every pair";
}

CheckView withBudget(const Check& check, std::size_t budget, Pictures* pictures = somePictures) {
  return made_document::view(check, {"title", false, budget}, pictures);
}

TEST(CheckViewBudget, KeepsTheDotsOfTheWorstPairBeforeTheTables) {
  const std::size_t dots = viewOf(manyPairs(), 1000000, noPictures)["details"][11].dump().size();
  const std::size_t enough = dots + dots / 10;
  ASSERT_LT(enough, dots + viewOf(manyPairs(), 0)["document"].dump().size());
  const CheckView view = withBudget(manyPairs(), enough);
  const Json data = Json::parse(view.data);
  EXPECT_EQ(view.row_map, RowMap::kThere);
  EXPECT_EQ(data["details"][11]["points"]["id"].size(), 12U);
  EXPECT_TRUE(data["details"][11]["pictures"]["left"].is_null());
  EXPECT_TRUE(data["details"][0].is_null());
  EXPECT_EQ(data["left_out"],
            "Dots and pictures of 15 of 16 pairs were left out to keep the file small; the dots of the worst pair are "
            "there, without its pictures. polarline report --budget takes more.");
  EXPECT_EQ(withBudget(manyPairs(), dots / 2).row_map, RowMap::kLeftOut);
}

TEST(CheckViewBudget, OfADocumentWithoutPicturesLeavesNoneOut) {
  const std::size_t dots = viewOf(manyPairs(), 1000000, noPictures)["details"][11].dump().size();
  EXPECT_EQ(Json::parse(withBudget(manyPairs(), dots + dots / 10, noPictures).data)["left_out"],
            "Dots and pictures of 15 of 16 pairs were left out to keep the file small; those of the worst pairs are "
            "there, and others evenly over the list. polarline report --budget takes more. Pictures of 1 pair are not "
            "shown: the files are not where they were, have changed, or were not wanted.");
}

TEST(CheckViewBudget, OfOnePairLeavesItsPicturesOut) {
  const std::size_t dots = viewOf(made_document::check(), 1000000, noPictures)["details"][0].dump().size();
  EXPECT_EQ(Json::parse(withBudget(made_document::check(), dots + dots / 10).data)["left_out"],
            "Pictures of the only pair were left out to keep the file small. polarline report --budget takes more.");
}

TEST(CheckViewRowMap, IsThatOfThePairToBeginWith) {
  Check check = manyPairs();
  EXPECT_EQ(withBudget(check, 1000000).row_map, RowMap::kThere);
  for (float& dy : check.pairs[11].points.dy) dy = NAN;
  EXPECT_EQ(withBudget(check, 1000000).row_map, RowMap::kNoRows);
  check.summary.clear();
  check.pairs = {hand_made::givenUp(check.pairs[0])};
  EXPECT_EQ(withBudget(check, 1000000).row_map, RowMap::kNoPair);
  check.pairs.clear();
  EXPECT_EQ(withBudget(check, 1000000).row_map, RowMap::kNoPair);
}

TEST(CheckViewBudget, OfNothingSaysThatNoPairIsThere) {
  EXPECT_EQ(viewOf(manyPairs(), 0)["left_out"],
            "Dots and pictures of all 16 pairs were left out to keep the file small. polarline report --budget takes "
            "more.");
  EXPECT_EQ(viewOf(made_document::check(), 0)["left_out"],
            "Dots and pictures of the only pair were left out to keep the file small. polarline report --budget takes "
            "more.");
}

TEST(CheckViewPictures, ThatAreMissingAreTold) {
  EXPECT_THAT(viewOf(made_document::check(), 1000000, noPictures)["left_out"].get<std::string>(),
              HasSubstr("Pictures of 1 pair are not shown"));
}

TEST(CheckViewEnding, ShowsThePairWithoutAnEntry) {
  const auto view = [](made_document::Pictures* pictures) {
    return Json::parse(made_document::view(made_document::check(), {"a", false, 100'000}, pictures).data)["ended_at"];
  };
  EXPECT_TRUE(view(made_document::noPictures).is_null());
  const Json ended = view([](std::size_t place) {
    PairPictures shown;
    if (place == 1) shown.left = PagePicture{"data:l", {4, 3}};
    return shown;
  });
  EXPECT_EQ(ended["pictures"]["left"]["source"], "data:l");
  EXPECT_TRUE(ended["pictures"]["right"].is_null());
  EXPECT_TRUE(ended["failed_step"].is_null());
}

int dotsIn(const Json& grid) {
  int dots = 0;
  for (const Json& cell : grid["dots"]) dots += cell.get<int>();
  return dots;
}

TEST(CheckViewCoverage, CountsAllFinishedPairs) {
  Check check = manyPairs();
  check.pairs.resize(3);
  check.pairs[2] = hand_made::givenUp(check.pairs[2]);
  const Json coverage = viewOf(check)["coverage"];
  EXPECT_EQ(coverage["left"]["columns"], 16);
  EXPECT_EQ(coverage["left"]["rows"], 12);
  EXPECT_EQ(dotsIn(coverage["left"]), 24) << "12 of each finished pair";
  EXPECT_THAT(coverage["sentence"].get<std::string>(), HasSubstr("The dots of 2 pairs together reach"));
  check.cameras.width = 0;
  EXPECT_TRUE(viewOf(check)["coverage"].is_null());
}

/// Of a set of rectified pictures, too, in the pictures that there are.
TEST(CheckViewCoverage, OfRectifiedPicturesIsThatOfTheirPlaces) {
  Check check = made_document::check();
  PairPoints& points = check.pairs[0].points;
  for (auto* places : {&points.left_x, &points.left_y, &points.right_x, &points.right_y}) {
    for (float& place : *places) place = NAN;
  }
  Json coverage = viewOf(check)["coverage"];
  EXPECT_EQ(dotsIn(coverage["left"]), 12);
  EXPECT_EQ(dotsIn(coverage["right"]), 9) << "those of the first column are at -5";
  EXPECT_EQ(coverage["sentence"],
            "The dots of 1 pair reach 6 % of the left picture's cells and 5 % of the right one's.");
  for (float& place : points.rectified_left_x) place = NAN;
  EXPECT_TRUE(viewOf(check)["coverage"].is_null()) << "no place is known";
}

TEST(CheckViewPaths, AreFileNamesUnlessWanted) {
  Check check = made_document::check();
  check.inputs = {{"target", "/secret/target.ini", ""}};
  EXPECT_THAT(made_document::view(check, {"", false, 0}, noPictures).data, Not(HasSubstr("secret")));
  EXPECT_THAT(made_document::view(check, {"", true, 0}, noPictures).data, HasSubstr("/secret/target.ini"));
}

}  // namespace
}  // namespace polarline
