#include "check/init/Guesses.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::Contains;
using testing::HasSubstr;

std::vector<std::string> guesses(const PolarConfig& config, const init::SetFacts& facts) {
  polarline::MadeSet set;
  set.type = 1;
  set.model = "Brown, K1 to K6";
  init::addGuesses(set, {{20, 24, 38, 42}, 2, 3, true}, facts, config);
  return set.guesses;
}

TEST(Guesses, TellLensCornersAndSwitches) {
  PolarConfig config;
  config.triangulate_residual_switch = 1;
  config.discalswitch = true;
  config.allpoints_calc_switch = 1;
  config.foursixmethod_swithch = 1;
  const auto told = guesses(config, {});
  EXPECT_THAT(told, Contains("The lens model is Brown, K1 to K6 (type 1), as K4 to K6 are not all 0"));
  EXPECT_THAT(told, Contains(HasSubstr("the dots 20, 24, 38, 42: 2 columns and 3 rows in")));
  EXPECT_THAT(told, Contains("Every evaluation of an image set is on, but eccentricity"));
}

TEST(Guesses, TellEachSwitchThatIsOffAndWhy) {
  auto told = guesses({}, {1, true, true});
  EXPECT_THAT(told, Contains(HasSubstr("the residuals (pictures of more than one channel end them)")));
  EXPECT_THAT(told, Contains(HasSubstr("discalswitch")));
  EXPECT_THAT(told, Contains(HasSubstr("it does not follow the quarter turn")));
  EXPECT_THAT(told, Contains(HasSubstr("x_y is 1")));
  PolarConfig two_steps;
  two_steps.foursixmethod_swithch = 1;
  told = guesses(two_steps, {});
  EXPECT_THAT(told, Contains(HasSubstr("the board has two steps")));
}

}  // namespace
