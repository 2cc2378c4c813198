#include "check/init/Pairing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "polarline/errors.h"

namespace {

using polarline::PairBy;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Names = std::vector<std::string>;

struct PairCase {
  const char* name;
  Names left;
  Names right;
  Names pairs;  ///< "LEFT RIGHT" each.
};

Names told(const init::Pairing& pairing, const Names& left, const Names& right) {
  Names text;
  for (const auto& [l, r] : pairing.pairs) text.push_back(left[l] + " " + right[r]);
  return text;
}

std::string refusal(const Names& left, const Names& right, PairBy by = PairBy::kAuto) {
  try {
    init::paired(left, right, by);
  } catch (const polarline::InputError& error) {
    return error.what();
  }
  return "";
}

class PairingOfNames : public testing::TestWithParam<PairCase> {};

TEST_P(PairingOfNames, FindsThePartners) {
  const auto& [name, left, right, pairs] = GetParam();
  EXPECT_EQ(told(init::paired(left, right), left, right), pairs);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, PairingOfNames,
    testing::Values(
        PairCase{"Numbers",
                 {"left_0007.png", "left_0008.png"},
                 {"right_0007.png", "right_0008.png"},
                 {"left_0007.png right_0007.png", "left_0008.png right_0008.png"}},
        PairCase{"Folders",
                 {"cam0/000123.png", "cam0/000124.png"},
                 {"cam1/000123.png", "cam1/000124.png"},
                 {"cam0/000123.png cam1/000123.png", "cam0/000124.png cam1/000124.png"}},
        PairCase{"OnePair", {"a/left.png"}, {"b/c/right.png"}, {"a/left.png b/c/right.png"}},
        PairCase{"OneOfMany", {"left_1.png", "left_2.png", "left_3.png"}, {"right_2.png"}, {"left_2.png right_2.png"}},
        PairCase{"OtherPadding",
                 {"l9.png", "l10.png"},
                 {"r0009.png", "r0010.png"},
                 {"l9.png r0009.png", "l10.png r0010.png"}},
        PairCase{"OtherExtensions", {"l1.png", "l2.png"}, {"r1.jpg", "r2.jpg"}, {"l1.png r1.jpg", "l2.png r2.jpg"}},
        PairCase{"SeveralVary",
                 {"r1/l/1", "r1/l/2", "r2/l/1"},
                 {"r1/r/1", "r1/r/2", "r2/r/1"},
                 {"r1/l/1 r1/r/1", "r1/l/2 r1/r/2", "r2/l/1 r2/r/1"}},
        PairCase{"NumberFirst",
                 {"0001_left.png", "0002_left.png"},
                 {"0001_right.png", "0002_right.png"},
                 {"0001_left.png 0001_right.png", "0002_left.png 0002_right.png"}},
        PairCase{"Words",
                 {"near_L.png", "far_L.png"},
                 {"near_R.png", "far_R.png"},
                 {"near_L.png near_R.png", "far_L.png far_R.png"}},
        PairCase{"Stamps",
                 {"l/1700000000100", "l/1700000000200"},
                 {"r/1700000000103", "r/1700000000198"},
                 {"l/1700000000100 r/1700000000103", "l/1700000000200 r/1700000000198"}},
        PairCase{"SomeStampsEqual",
                 {"l/1700000000100", "l/1700000000200"},
                 {"r/1700000000100", "r/1700000000201"},
                 {"l/1700000000100 r/1700000000100", "l/1700000000200 r/1700000000201"}},
        // Of counters only equal ones are partners, when some are equal.
        PairCase{"SparseCounters", {"l5", "l105", "l230"}, {"r7", "r105", "r230"}, {"l105 r105", "l230 r230"}}),
    [](const auto& test) { return test.param.name; });

TEST(Pairing, TellsWhatStaysAlone) {
  const init::Pairing pairing = init::paired({"l1", "l2", "l3"}, {"r2", "r3", "r4"});
  EXPECT_THAT(pairing.alone_left, ElementsAre(0));
  EXPECT_THAT(pairing.alone_right, ElementsAre(2));
}

TEST(Pairing, SaysByWhatItPaired) {
  EXPECT_EQ(init::paired({"a/l_07.png", "a/l_08.png"}, {"a/r_07.png", "a/r_08.png"}).how,
            "by the part of the names that varies: 07 in l_07.png with r_07.png");
  EXPECT_EQ(init::paired({"l/1700000000100", "l/1700000000200"}, {"r/1700000000103", "r/1700000000198"}).how,
            "by time stamps: partners differ by up to 3, the nearest neighbours of a side by 95");
}

TEST(Pairing, OtherStartsArePairedInOrderAndSaidSo) {
  const init::Pairing pairing = init::paired({"l1000", "l1001"}, {"r2000", "r2001"});
  EXPECT_EQ(pairing.pairs.size(), 2U);
  ASSERT_EQ(pairing.warnings.size(), 1U);
  EXPECT_EQ(pairing.warnings[0].code, "pairs_guessed");
}

TEST(Pairing, EqualNumbersGoBeforeTheOrderButTheOtherReadingIsTold) {
  const init::Pairing pairing = init::paired({"l0", "l1", "l2"}, {"r1", "r2", "r3"});
  EXPECT_EQ(pairing.pairs.size(), 2U);
  ASSERT_EQ(pairing.warnings.size(), 1U);
  EXPECT_EQ(pairing.warnings[0].code, "pairs_shifted");
  EXPECT_EQ(init::paired({"l0", "l1", "l2"}, {"r1", "r2", "r3"}, PairBy::kOrder).pairs.size(), 3U);
  EXPECT_THAT(init::paired({"l0", "l1", "l2"}, {"r1", "r2", "r3"}, PairBy::kNames).warnings, IsEmpty());
}

TEST(Pairing, TwoCandidatesAreRefusedByName) {
  const std::string text = refusal({"l_7.png", "l_8.png"}, {"r_7.jpg", "r_7.png", "r_8.png"});
  EXPECT_THAT(text, HasSubstr("l_7.png"));
  EXPECT_THAT(text, HasSubstr("r_7.jpg, r_7.png"));
  EXPECT_THAT(refusal({"l_7.png", "l_007.png"}, {"r_7.png", "r_8.png"}), HasSubstr("left l_7.png, l_007.png"));
}

TEST(Pairing, NoPartnerAtAllIsRefused) {
  EXPECT_THAT(refusal({"l1", "l2"}, {"r7", "r9"}), HasSubstr("no picture has a partner: left l1 (2 in all), right r7"));
  EXPECT_THAT(refusal({"l1", "l2"}, {"r5", "r6"}, PairBy::kNames), HasSubstr("no picture has a partner"));
  EXPECT_THAT(refusal({"l1", "l2"}, {"r8", "r9"}, PairBy::kStamps), HasSubstr("no picture has a partner"));
}

TEST(Pairing, OrderWantsEqualCounts) {
  EXPECT_THAT(refusal({"l1", "l2"}, {"r1"}, PairBy::kOrder), HasSubstr("found 2 and 1"));
}

TEST(Pairing, APictureIsOfOneSide) {
  EXPECT_THAT(refusal({"a1", "a2"}, {"a2", "a3"}), HasSubstr("a2: is named as a left picture and as a right one"));
}

}  // namespace
