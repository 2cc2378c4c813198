#include <gtest/gtest.h>

#include "polarline/batch.h"
#include "support/DocumentCheck.h"

namespace polarline {
namespace {

TEST(BatchLine, TellsWhatBecameOfASet) {
  BatchResult result;
  result.set = "a \"b\"\t";
  result.state = BatchState::kNotWritten;
  result.exit_code = 4;
  result.retry = true;
  result.id = "00ff";
  result.document = "s/00/00.json";
  result.seconds = 0.25;
  result.text = "full";
  EXPECT_EQ(
      batchLine(result),
      R"({"schema":"polarline-batch/1","set":"a \"b\"\u0009","state":"not written","verdict":"error","exit_code":4,)"
      R"("retry":true,"id":"00ff","document":"s/00/00.json","seconds":0.25,"text":"full"})");
}

TEST(BatchLine, IsOfItsSchemaInEveryState) {
  for (const BatchState state : {BatchState::kJudged, BatchState::kThere, BatchState::kDuplicate,
                                 BatchState::kNotWritten, BatchState::kRefused}) {
    for (const Verdict verdict : {Verdict::kPass, Verdict::kFail, Verdict::kError}) {
      BatchResult result;
      result.state = state;
      result.verdict = verdict;
      EXPECT_EQ(DocumentCheck::of("batch").parsed(batchLine(result))["set"], "");
    }
  }
}

TEST(BatchLineOfAll, IsOfItsSchema) {
  const BatchOutcome outcome{7, 4, 2, 1, 3};
  const auto document = DocumentCheck::of("batch-outcome").parsed(batchJson(outcome));
  EXPECT_EQ(document["sets"], 7);
  EXPECT_EQ(document["judged"], 4);
  EXPECT_EQ(document["there"], 2);
  EXPECT_EQ(document["failed"], 1);
  EXPECT_EQ(document["exit_code"], 3);
}

}  // namespace
}  // namespace polarline
