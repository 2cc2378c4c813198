#include "store/fleet/MeasuredValues.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/fleet/FleetRows.h"

namespace {

using namespace polarline::fleet;
using ::testing::DoubleEq;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::IsNan;

struct MeasuredValuesRead : ::testing::Test {
  FleetRows rows;

  MeasuredValues read(const std::vector<Measure>& measures) const {
    return readMeasuredValues(rows.database(), FleetSets(rows.database()), measures);
  }
};

TEST_F(MeasuredValuesRead, AreOverTheFinishedPairsOfEachSet) {
  const auto later = rows.set("2026-01-06T06:00:00Z");
  const auto earlier = rows.set("2026-01-05T06:00:00Z");
  rows.pair(later, 0, {{"dy_means", 1.0}});
  rows.pair(later, 1, {{"dy_means", 4.0}});
  rows.pair(later, 2, {{"dy_means", 4.0}});
  rows.pair(later, 3, {{"dy_means", 99.0}}, "given up");
  rows.pair(earlier, 0, {{"dy_means", -2.0}});
  const auto values = read({{"dy_means", MeasureValue::kMax, {}},
                            {"dy_means", MeasureValue::kMin, {}},
                            {"dy_means", MeasureValue::kAbs, {}},
                            {"dy_means", MeasureValue::kMean, {}},
                            {"dy_means", MeasureValue::kSd, {}},
                            {"dy_max", MeasureValue::kMean, {}}});
  EXPECT_THAT(values[0], ElementsAre(-2.0, 4.0));
  EXPECT_THAT(values[1], ElementsAre(-2.0, 1.0));
  EXPECT_THAT(values[2], ElementsAre(2.0, 4.0));
  EXPECT_THAT(values[3], ElementsAre(-2.0, 3.0));
  EXPECT_THAT(values[4], ElementsAre(IsNan(), DoubleNear(1.7320508075688772, 1e-12)));  // (4 + 1 + 1) / 2 = 3.
  EXPECT_THAT(values[5], ElementsAre(IsNan(), IsNan()));
}

TEST_F(MeasuredValuesRead, OfAListAreOverItsEntries) {
  const auto set = rows.set("2026-01-05T06:00:00Z");
  rows.pair(set, 0, {{"tri_dis[0]", 0.1}, {"tri_dis[1]", -0.4}, {"tri_diss", 7.0}});
  const auto values = read({{"tri_dis", MeasureValue::kAbs, {}}, {"tri_dis[0]", MeasureValue::kMax, {}}});
  EXPECT_THAT(values[0], ElementsAre(0.4));
  EXPECT_THAT(values[1], ElementsAre(0.1));
}

TEST_F(MeasuredValuesRead, LoseNothingOfALargeFigureThatHardlyVaries) {
  const auto set = rows.set("2026-01-05T06:00:00Z");
  rows.pair(set, 0, {{"zero_dis", 1e9}});
  rows.pair(set, 1, {{"zero_dis", 1e9 + 0.5}});
  rows.pair(set, 2, {{"zero_dis", 1e9 + 1.0}});
  EXPECT_THAT(read({{"zero_dis", MeasureValue::kSd, {}}})[0], ElementsAre(DoubleEq(0.5)));
}

}  // namespace
