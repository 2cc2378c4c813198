#include <gtest/gtest.h>

#include "polarline/check.h"

namespace {

TEST(PairCheck, FindsAFigureByItsName) {
  polarline::PairCheck pair;
  pair.figures.resize(2);
  pair.figures[0].name = "dy_means";
  pair.figures[1].name = "dy_max";
  EXPECT_EQ(pair.figure("dy_max"), &pair.figures[1]);
  EXPECT_EQ(pair.figure("dy"), nullptr);
}

TEST(PairCheck, FindsHowCertainAFigureIs) {
  polarline::PairCheck pair;
  pair.uncertainty = {{"dy_means", 0.1, 1.0, 2.0}, {"tri_rms", 0.2, 3.0, 4.0}};
  EXPECT_EQ(pair.uncertaintyOf("tri_rms"), &pair.uncertainty[1]);
  EXPECT_EQ(pair.uncertaintyOf("tri_max"), nullptr);
}

TEST(PairCheckRefined, FindsARefinedFigureByItsName) {
  polarline::RefinedPair pair;
  pair.figures.resize(2);
  pair.figures[0].name = "dy_means";
  pair.figures[1].name = "dy_max";
  EXPECT_EQ(pair.figure("dy_max"), &pair.figures[1]);
  EXPECT_EQ(pair.figure("tri_rms"), nullptr);
}

TEST(PairCheckFinished, CountsThePairsThatWereNotGivenUp) {
  polarline::Check check;
  check.pairs.resize(3);
  check.pairs[1].finished = true;
  EXPECT_EQ(check.finished(), 1U);
}

}  // namespace
