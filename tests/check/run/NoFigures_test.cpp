#include "check/run/NoFigures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeCheck.h"
#include "polarline/exit_code.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

TEST(NoFigures, AreNoStatusWhereAPairHasAFigure) {
  Check check;
  check.pairs = {hand_made::pair(0, {}, {}), hand_made::pair(1, {0.1}, {})};
  EXPECT_FALSE(nothingMeasured(check, {}));
  check.pairs = {hand_made::givenUp(hand_made::pair(0, {}, {}))};
  EXPECT_FALSE(nothingMeasured(check, {})) << "that no pair was finished is another status";
}

TEST(NoFigures, NameWhatIsOff) {
  Check check;
  check.pairs = {hand_made::pair(0, {}, {})};
  for (Figure& figure : check.pairs[0].figures) figure.is_own = false;
  RunInputs inputs;
  inputs.config.discalswitch = true;
  const auto status = nothingMeasured(check, inputs);
  ASSERT_TRUE(status);
  EXPECT_EQ(status->exit_code, kNoFigure);
  EXPECT_EQ(status->name, "nothing_measured");
  EXPECT_EQ(status->text,
            "no pair has a figure: these switches are off: triangulate_residual_switch, triangulate_dis_switch, "
            "dy_bias_switch, foursixmethod_swithch; board_gt.txt has 0 true positions, and the fit of the board wants "
            "31");
  inputs.config.frame_work = 1;
  EXPECT_THAT(nothingMeasured(check, inputs)->text, HasSubstr("Frame_ID_DIS names no distance to judge"));
}

}  // namespace
}  // namespace polarline
