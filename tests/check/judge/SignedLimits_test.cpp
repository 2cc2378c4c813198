#include "check/judge/SignedLimits.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

std::string warningsOf(const std::vector<std::string>& texts) {
  std::vector<Limit> limits;
  for (const std::string& each : texts) limits.push_back(parseLimit(each));
  std::vector<Warning> warnings;
  warnOfSigns(limits, warnings);
  std::string all;
  for (const Warning& each : warnings) {
    EXPECT_EQ(each.code, "signed_limit");
    EXPECT_FALSE(each.advice.empty());
    all += each.text + "\n";
  }
  return all;
}

TEST(SignedLimits, FromOneSideAreToldOf) {
  EXPECT_EQ(warningsOf({"tri_dis<=0.5"}),
            "tri_dis<=0.5 holds however far tri_dis is below 0; did you mean |tri_dis|<=0.5?\n");
  EXPECT_EQ(warningsOf({"pol_dis[0] > -2"}),
            "pol_dis[0] > -2 holds however far pol_dis is above 0; did you mean |pol_dis[0]|<=2?\n");
  EXPECT_EQ(warningsOf({"summary.allpoints_means.mean<0.1"}),
            "summary.allpoints_means.mean<0.1 holds however far allpoints_means is below 0; did you mean "
            "|summary.allpoints_means.mean|<=0.1?\n");
}

TEST(SignedLimits, OfferWhatParses) { EXPECT_NO_THROW(parseLimit("|summary.allpoints_means.mean|<=0.1")); }

TEST(SignedLimits, FromBothSidesOrOfTheSizeAreFine) {
  EXPECT_EQ(warningsOf({"|tri_dis|<=0.5", "|tri_dis[0]|<0.1"}), "");
  EXPECT_EQ(warningsOf({"tri_dis[0]<=0.5", "tri_dis[0]>=-0.5"}), "");
  EXPECT_EQ(warningsOf({"tri_dis[0]<=0.1", "tri_dis>=-0.5"}), warningsOf({"tri_dis>=-0.5"}));
  EXPECT_EQ(warningsOf({"tri_dis[0]<=0.1", "|tri_dis|<=0.5"}), "");
  EXPECT_NE(warningsOf({"tri_dis[0]<=0.5", "tri_dis[1]>=-0.5"}), "");
}

TEST(SignedLimits, OfFiguresWithoutASignAreFine) {
  EXPECT_EQ(warningsOf({"dy_means<=0.1", "zero_dis>=100", "PoseReport[0]<=5", "given_up<=0",
                        "summary.tri_dis[0].sd<=0.1", "allpoint_max<=1"}),
            "");
}

}  // namespace
}  // namespace polarline
