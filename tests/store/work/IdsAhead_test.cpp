#include "store/work/IdsAhead.h"

#include "OneSet.h"

namespace polarline {
namespace {

struct IdsAheadOfAList : OneSet {};

TEST_F(IdsAheadOfAList, AreThoseOfTheSetsInTheirOrder) {
  const BatchSet another = copy("another", "dy_means<=1");
  const std::vector<BatchSet> sets = {listed(), another, {3, set.parent.file("none"), {}}, listed()};
  IdsAhead ids(sets, options);
  const std::string first = ids.next();
  EXPECT_EQ(first, set.check().id);
  const std::string second = ids.next();
  EXPECT_EQ(second.size(), 64U);
  EXPECT_NE(second, first);
  EXPECT_EQ(ids.next(), "");
  EXPECT_EQ(ids.next(), first);
}

}  // namespace
}  // namespace polarline
