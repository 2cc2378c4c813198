#include "store/work/ClaimText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace polarline {
namespace {

TEST(ClaimText, TellsWhoClaims) {
  const std::string text = claimText({"station \"3\"", "boot ns", 4711, "99"});
  EXPECT_THAT(text, ::testing::MatchesRegex(R"(\{"host":"station \\"3\\"".*"time":"20[-0-9]*T[0-9:]*Z"\}.)"));
  const auto worker = claimant(text);
  ASSERT_TRUE(worker);
  EXPECT_EQ(worker->host, "station \"3\"");
  EXPECT_EQ(worker->machine, "boot ns");
  EXPECT_EQ(worker->process, 4711);
  EXPECT_EQ(worker->began, "99");
}

TEST(ClaimText, OfNobodyIsNoClaim) {
  for (const char* text :
       {"", "{", "[]", "7", R"({"host":"a","machine":"b","process":"c","began":"d"})",
        R"({"host":"a","machine":"b","began":"d"})", R"({"host":"a","machine":"b","process":1e308,"began":"d"})",
        R"({"host":"a","machine":"b","process":true,"began":"d"})"})
    EXPECT_FALSE(claimant(text)) << text;
}

}  // namespace
}  // namespace polarline
