// Words of traces written down by hand; Detect_test.cpp has those of rendered boards.
#include "check/picture/DetectionWords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using kestrune::DetectionStep;
using testing::HasSubstr;

struct Trace {
  kestrune::RingTargetConfig config;
  kestrune::DetectionTrace trace;

  Trace(std::int32_t board_type, DetectionStep step) {
    config.board_type = board_type;
    trace.step = step;
    trace.working_size = {2048, 1536};
  }
  DetectionWords words(double radius = 20.0, const std::string& exception = {}) const {
    return wordsOf({config, trace, {4096, 3072}, CV_8UC1, exception, radius, 0, false});
  }
};

TEST(DetectionWords, OfRingsCountWhatIsNeededAndFound) {
  Trace seen(2, DetectionStep::kMarkers);
  seen.trace.classes.rings = 3;
  seen.trace.classes.unknown = 1;
  seen.trace.rings.small_rings = 3;
  EXPECT_EQ(
      seen.words().text,
      "the markers were not recognised: 4 rings are needed, 3 were found; 1 solid ring is needed, 0 were found; 1 mark "
      "like a marker, but of no kind");
}

TEST(DetectionWords, OfEnoughRingsTellTheirSizes) {
  Trace seen(2, DetectionStep::kMarkers);
  seen.trace.classes = {100, 4, 1, 0, 0};
  seen.trace.rings = {3, 1, 1, 0};
  EXPECT_THAT(seen.words().text, HasSubstr("found were 3 small and 1 big among the rings, 1 small and 0 big among"));
}

// At 4096 columns the dots beside a ring count from 12.8 pixels.
TEST(DetectionWords, OfRingsAmongTooSmallDotsTellTheLimit) {
  Trace seen(2, DetectionStep::kMarkers);
  seen.trace.classes = {5000, 4, 1, 0, 0};
  EXPECT_THAT(
      seen.words(9.5).text,
      HasSubstr("4 rings and 1 solid ring were found, but none has dots beside it to be sized by: in a picture of "
                "4096 columns only dots of more than 12.8 pixels count, and these have 9.5"));
}

TEST(DetectionWords, OfMarkersThatMapNothingNameTheTarget) {
  const DetectionWords words = Trace(3, DetectionStep::kArrangement).words(20.0, "singular");
  EXPECT_THAT(words.text, HasSubstr("give no mapping to the picture: singular"));
  EXPECT_THAT(words.advice, HasSubstr("step_y"));
}

TEST(DetectionWords, OfAGrowthThatGaveNothing) {
  Trace seen(3, DetectionStep::kGrowth);
  seen.trace.fullest_block = 9;
  EXPECT_THAT(seen.words().text, HasSubstr("the numbering gave no dot"));
}

TEST(DetectionWords, EveryStepHasWordsAndAllButTheLastAdvice) {
  for (int step = 0; step <= static_cast<int>(DetectionStep::kDone); ++step) {
    for (const std::int32_t type : {2, 3}) {
      const DetectionWords words = Trace(type, static_cast<DetectionStep>(step)).words();
      EXPECT_NE(words.text, "") << step;
      EXPECT_EQ(words.advice.empty(), static_cast<DetectionStep>(step) == DetectionStep::kDone) << step;
    }
  }
}

}  // namespace
