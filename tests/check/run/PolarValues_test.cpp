#include "check/run/PolarValues.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

struct Written {
  const char* key;
  const char* value;
  const char* wanted;  ///< Empty: the value is understood.
};

class PolarValues : public ::testing::TestWithParam<Written> {};

TEST_P(PolarValues, AreJudgedByTheTypeOfTheirKey) {
  const Written& written = GetParam();
  EXPECT_EQ(wantedInstead(written.key, written.value).value_or(""), written.wanted)
      << written.key << ": " << written.value;
}

constexpr const char* kPoint = "a list of three numbers such as [1,2,3], without blanks,";
constexpr const char* kAbove = "a number above 0";
constexpr const char* kRows = "a list of lists of numbers such as [[1,2],[3,4]], without blanks,";

INSTANTIATE_TEST_SUITE_P(
    All, PolarValues,
    ::testing::Values(Written{"type", "1", ""}, Written{"type", "1 # the model of the lenses\r", ""},
                      Written{"type", "1.5", "a whole number"}, Written{"type", "1.0", ""},
                      Written{"type", "1=2", "a whole number"}, Written{"type", "1 2", "a whole number"},
                      Written{"type", "2x", "a whole number"}, Written{"type", "zz", "a whole number"},
                      Written{"type", "", "a whole number"},
                      Written{"type", "99999999999", "a whole number of at most 2147483647"},
                      Written{"f_scale", "0.5px", "a number"}, Written{"f_scale", "2 #", ""},
                      Written{"f_scale", "1,5", "a number"}, Written{"f_scale", "half", "a number"},
                      Written{"f_scale", "nan", "a number"}, Written{"f_scale", "1e99", "a number of at most 3.4e38"},
                      Written{"tri_bias_divid", "zz", "a number"}, Written{"eccentricity", "2", ""},
                      Written{"eccentricity", "1x", "0 or 1"}, Written{"eccentricity", "true", "0 or 1"},
                      Written{"TriPoint1_GT", "[1,-2.5,3e1]", ""}, Written{"TriPoint1_GT", "1,2,3] behind", ""},
                      Written{"TriPoint1_GT", "[1mm,2,3]", kPoint}, Written{"TriPoint1_GT", "[a,b,c]", kPoint},
                      Written{"TriPoint1_GT", "[1,,3]", kPoint}, Written{"TriPoint1_GT", "[1, 2, 3]", kPoint},
                      Written{"PolPoint4_GT", "[1,2]", kPoint}, Written{"PolPoint4_GT", "[1,2,3,4]", kPoint},
                      Written{"f_scale", "0", kAbove}, Written{"f_scale", "-1", kAbove}, Written{"f_scale", "0.5", ""},
                      Written{"evalu_model", "5", "0 or 1"}, Written{"evalu_model", "1", ""},
                      Written{"x_y", "2", "0 or 1"}, Written{"Frame_ID", "[1,2]", ""},
                      Written{"Frame_ID", "[1,2.5]", "a list of numbers such as [1,2,3], without blanks,"},
                      Written{"Frame_ID", "[]", ""}, Written{"Cal_ID_DIS", "[[1,2],[3,4]]", ""},
                      Written{"Cal_ID_DIS", "[]", ""}, Written{"Cal_ID_DIS", "[[1,2],[3,x]]", kRows},
                      Written{"Frame_3D", "[[1,2,3], [4,5,6]]", kRows}, Written{"nonsense", "zz", ""}));

}  // namespace
}  // namespace polarline
