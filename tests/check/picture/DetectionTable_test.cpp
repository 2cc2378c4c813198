#include <gtest/gtest.h>

#include "GridDetection.h"
#include "polarline/detect.h"

namespace {

TEST(DetectionTable, OfAFoundBoardNamesStepsOutcomeMissingAndWarnings) {
  polarline::Detection detection = gridDetection(4, 4, 20.0);
  for (const int id : {0, 0}) drop(detection, id);
  detection.missing = {0, 1};
  detection.stages = {{"image", "passed", "640 x 480"}, {"growth", "passed", "14 numbered"}};
  detection.text = "14 numbered of 16 dots";
  detection.warnings = {{"code", "something is odd", "do this"}};
  EXPECT_EQ(detectionTable(detection),
            "image        passed       640 x 480\n"
            "growth       passed       14 numbered\n"
            "found                     14 numbered of 16 dots\n"
            "missing                   2 dots, ids 0, 1\n"
            "dots                      radius 6.0 pixels of the picture (median)\n"
            "warning                   something is odd\n"
            "                          do this\n");
}

TEST(DetectionTable, OfAFailureEndsWithTheAdvice) {
  polarline::Detection detection;
  detection.stages = {{"image", "stopped", "0 x 0"}, {"contours", "not reached", ""}};
  detection.text = "the picture is empty";
  detection.advice = "write it whole";
  EXPECT_EQ(detectionTable(detection),
            "image        stopped      0 x 0\n"
            "contours     not reached\n"
            "not found                 the picture is empty\n"
            "advice                    write it whole\n");
}

TEST(DetectionTable, OfManyMissingTellsTheFirstTwelve) {
  polarline::Detection detection = gridDetection(4, 4, 20.0);
  for (int id = 0; id < 13; ++id) detection.missing.push_back(id);
  EXPECT_NE(detectionTable(detection).find("13 dots, ids 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, ...\n"),
            std::string::npos);
}

}  // namespace
