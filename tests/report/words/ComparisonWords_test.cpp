#include "report/words/ComparisonWords.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

using made_document::summary;

std::string wordsOf(const std::vector<FigureSummary>& first, const std::vector<FigureSummary>& other) {
  Check a = made_document::check();
  Check b = a;
  a.summary = first;
  b.summary = other;
  return comparisonWords({"before", "after"}, compareFigures({&a, &b}));
}

TEST(ComparisonWordsOf, ACheckAgainstTheFirst) {
  EXPECT_EQ(
      wordsOf({summary("dy_means", 1.0, 0.03), summary("tri_rms", 1.0, 0.3), summary("dis_rms", 1.0, 0.03)},
              {summary("dy_means", 0.5, 0.04), summary("tri_rms", 1.1, 0.4), summary("dis_rms", 2.0, 0.04)}),
      "after against before. Less: dy_means (by 0.50 ± 0.05 pixels). More: dis_rms (by 1.00 ± 0.05 pixels). None: 1 "
      "figure, whose difference is within its uncertainty.");
}

TEST(ComparisonWordsOf, ExactFiguresHaveNoError) {
  EXPECT_EQ(wordsOf({summary("dy_means", 2.5, 0.0)}, {summary("dy_means", 1.5, 0.0)}),
            "after against before. Less: dy_means (by 1 pixels).");
}

TEST(ComparisonWordsOf, FewPairsSaySo) {
  EXPECT_EQ(wordsOf({summary("dy_means", 1.0, NAN)}, {summary("dy_means", 0.5, NAN)}),
            "after against before. Not known: 1 figure, as five finished pairs of each check are needed to tell a "
            "difference of them from chance.");
}

TEST(ComparisonWordsOf, FewPairsWithCertainDotsSayOfWhat) {
  Check first = made_document::check();
  first.pairs[0].uncertainty = {{"dy_means", 0.03, NAN, NAN}};
  Check other = first;
  other.pairs[0].uncertainty = {{"dy_means", 0.04, NAN, NAN}};
  other.summary[0].mean = 1.055;
  EXPECT_EQ(
      comparisonWords({"before", "after"}, compareFigures({&first, &other})),
      "after against before. More: dy_means (by 1.00 ± 0.05 pixels). With fewer than five finished pairs in a check "
      "the ± is of the dots within them alone: other pairs may differ by more.");
}

TEST(ComparisonWordsOf, NothingInCommon) {
  EXPECT_EQ(wordsOf({summary("dy_means", 1.0, 0.1)}, {summary("tri_rms", 0.5, 0.1)}),
            "after against before. No figure was measured in both.");
}

TEST(ComparisonWordsMany, BeginWithThoseThatMatterMost) {
  EXPECT_NE(wordsOf({summary("icp_x_rms", 1.0, 0.01), summary("dy_means", 1.0, 0.01)},
                    {summary("icp_x_rms", 2.0, 0.01), summary("dy_means", 2.0, 0.01)})
                .find("More: dy_means"),
            std::string::npos);
}

TEST(ComparisonWordsMany, AreCounted) {
  std::vector<FigureSummary> first;
  std::vector<FigureSummary> other;
  for (const char* name : {"a", "b", "c", "d", "e"}) {
    first.push_back(summary(name, 1.0, 0.01));
    other.push_back(summary(name, 2.0, 0.01));
  }
  EXPECT_NE(wordsOf(first, other).find("c (by 1.000 ± 0.014 pixels) and 2 figures more."), std::string::npos)
      << wordsOf(first, other);
}

TEST(ComparisonWordsMany, LeaveEntriesAndRefinedFiguresToTheTable) {
  Check a = made_document::check();
  Check b = a;
  a.summary = {summary("tri_dis[0]", 1.0, 0.01)};
  b.summary = {summary("tri_dis[0]", 2.0, 0.01)};
  a.refined_summary = a.summary;
  b.refined_summary = b.summary;
  EXPECT_EQ(comparisonWords({"before", "after"}, compareFigures({&a, &b})),
            "after against before. No figure was measured in both.");
}

TEST(ComparisonWordsInputs, NameTheFilesThatDiffer) {
  Check a = made_document::check();
  EXPECT_EQ(inputsWords(a, a), "") << "no files are told";
  a.inputs = {{"calibration", "c.json", "0123456789"}, {"left/0", "l.png", "aa"}, {"right/0", "r.png", "bb"}};
  Check b = a;
  EXPECT_EQ(inputsWords(a, b), "All files are the same.");
  b.inputs[0].sha256 = "abcdef0123";
  EXPECT_EQ(inputsWords(a, b), "Other files: calibration (abcdef01, was 01234567).");
  b.inputs[2].sha256 = "cc";
  b.inputs.push_back({"limits", "limits.txt", "dd"});
  EXPECT_EQ(changedInputs(a, b), (std::vector<std::string>{"calibration", "limits", "pictures"}));
  EXPECT_EQ(inputsWords(a, b), "Other files: calibration (abcdef01, was 01234567), limits, pictures.");
  EXPECT_NE(comparisonWords({"a", "b"}, {}, {"", inputsWords(a, b)}).find("Other files: calibration"),
            std::string::npos);
}

}  // namespace
}  // namespace polarline
