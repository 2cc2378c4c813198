#include "report/words/PairSentences.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "MadeDocument.h"

namespace polarline {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;

PairSentences sentencesOf(const DotLists& dots) {
  const Json document = made_document::json(made_document::check());
  return pairSentences(dots, measure(dots, Board(document), CausePattern(document, knownCameras(document))));
}

TEST(PairSentencesOf, TellTheNumbers) {
  const PairSentences sentences = sentencesOf(made_document::dots());
  EXPECT_EQ(sentences.map,
            "Row difference of 12 dots over the picture: from 0 to 0.11 pixels, mean 0.055 pixels. In 1000 pixels it "
            "changes by 1 pixels along the picture and by 4 pixels across it.");
  EXPECT_THAT(sentences.histogram, HasSubstr("mean size is 0.055 pixels"));
  EXPECT_THAT(sentences.along, HasSubstr("along the picture in 4 stripes: from 0.04 to 0.07 pixels"));
  EXPECT_THAT(sentences.across, HasSubstr("changes by 4 pixels in 1000 pixels"));
  EXPECT_THAT(sentences.residual, HasSubstr("12 dots: mean 0.25 pixels, 95 % of them at most 0.25 pixels"));
  EXPECT_THAT(sentences.distances, HasSubstr("Errors of 66 distances"));
  EXPECT_THAT(sentences.depth, HasSubstr("of 12 dots"));
  EXPECT_EQ(sentences.disparity, "Disparity of 12 dots: from 5 to 5 pixels, mean 5 pixels.");
  EXPECT_THAT(sentences.board3d, HasSubstr("12 dots: root mean square"));
  EXPECT_EQ(sentences.worst_dots, "The 10 dots with the largest row difference: first dot 11 with 0.11 pixels.");
}

TEST(PairSentencesOf, SayWhatWasNotMeasured) {
  DotLists dots;
  dots.id = {0, 1};
  const PairSentences sentences = sentencesOf(dots);
  for (const std::string& each :
       {sentences.map, sentences.histogram, sentences.along, sentences.across, sentences.residual, sentences.distances,
        sentences.depth, sentences.disparity, sentences.board3d, sentences.worst_dots})
    EXPECT_EQ(each, "Not measured in this pair.");
}

TEST(PairSentencesRemains, SayOfWhatTheyAre) {
  const PairMeasures measures = [] {
    const Json document = made_document::json(made_document::check());
    return measure(made_document::dots(), Board(document), CausePattern(document, knownCameras(document)));
  }();
  const RowSentences sentences = remainsSentences(measures.rows);
  EXPECT_THAT(sentences.map, HasSubstr("What remains without the causes of 12 dots over the picture: from 0 to 0.11"));
  EXPECT_THAT(sentences.histogram, HasSubstr("what remains of the row differences without the causes: half of them"));
  EXPECT_THAT(sentences.along, HasSubstr("Mean of what remains without the causes along the picture in 4 stripes"));
}

TEST(PairSentencesResidual, SayWhichDotsTheFiguresLeaveOut) {
  DotLists dots = made_document::dots();
  dots.residual[2] = 5.0;
  EXPECT_THAT(sentencesOf(dots).residual, EndsWith("largest 5 pixels.")) << "5 itself counts";
  dots.residual[4] = 6.39;
  EXPECT_THAT(sentencesOf(dots).residual,
              EndsWith("largest 6.39 pixels. 1 dot above 5 pixels does not count in tri_rms, tri_mean, tri_max."));
  dots.residual[5] = 5.01;
  dots.residual[6] = NAN;
  EXPECT_THAT(sentencesOf(dots).residual,
              EndsWith("2 dots above 5 pixels do not count in tri_rms, tri_mean, tri_max."));
}

TEST(PairSentencesWorst, NameTheResidualWithoutRows) {
  DotLists dots = made_document::dots();
  dots.dy.clear();
  dots.residual[4] = 2.0;
  EXPECT_THAT(sentencesOf(dots).worst_dots, HasSubstr("largest residual: first dot 4 with 2 pixels"));
}

}  // namespace
}  // namespace polarline
