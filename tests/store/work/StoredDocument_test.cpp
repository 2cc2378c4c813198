#include "store/work/StoredDocument.h"

#include <gtest/gtest.h>

#include "polarline/check.h"
#include "polarline/exit_code.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

struct StoredDocumentOnDisk : ::testing::Test {
  TempFolder folder;
  Check check;

  StoredDocumentOnDisk() {
    check.id = "00ff";
    check.verdict = Verdict::kFail;
    check.status.exit_code = kLimitExceeded;
    check.status.text = "said";
  }
  std::optional<StoredDocument> read(const std::string& text) const { return readStored(folder.write("d.json", text)); }
};

TEST_F(StoredDocumentOnDisk, TellsWhatItsCheckTold) {
  const auto stored = read(toJson(check));
  ASSERT_TRUE(stored);
  EXPECT_EQ(stored->id, "00ff");
  EXPECT_EQ(stored->verdict, Verdict::kFail);
  EXPECT_EQ(stored->exit_code, kLimitExceeded);
  EXPECT_FALSE(stored->retry);
  EXPECT_EQ(stored->text, "said");
  check.status.retry = true;
  EXPECT_TRUE(read(toJson(check))->retry);
}

TEST_F(StoredDocumentOnDisk, ThatIsCutOffIsNone) {
  const std::string whole = toJson(check);
  for (std::size_t length = 0; length + 2 < whole.size(); length += 7)
    EXPECT_FALSE(read(whole.substr(0, length))) << length;
  EXPECT_FALSE(read(std::string(whole.size(), '\0')));
  EXPECT_FALSE(readStored(folder.file("none")));
  EXPECT_FALSE(readStored(folder.path()));
}

TEST_F(StoredDocumentOnDisk, OfSomethingElseIsNone) {
  EXPECT_FALSE(read("{}"));
  EXPECT_FALSE(read(R"({"schema": "polarline-detect/1", "verdict": "pass", "status": {"retry": false}})"));
  EXPECT_FALSE(read(R"({"schema": "polarline-check/1", "verdict": "maybe", "status": {"retry": false}})"));
  EXPECT_FALSE(read(R"({"schema": "polarline-check/1", "verdict": "pass", "deeper": {"status": {"retry": false}}})"));
}

TEST_F(StoredDocumentOnDisk, OfAnEarlierVersionHasTheExitCodeOfItsVerdict) {
  for (const auto& [verdict, code] : {std::pair("pass", kDone), {"fail", kLimitExceeded}, {"error", kNoFigure}}) {
    const auto stored = read(
        std::string(R"({"schema": "polarline-check/1", "status": {"retry": false}, "verdict": ")") + verdict + "\"}");
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->exit_code, code) << verdict;
  }
}

}  // namespace
}  // namespace polarline
