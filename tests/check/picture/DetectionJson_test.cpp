#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <string>

#include "BoardPicture.h"
#include "GridDetection.h"
#include "SchemaCheck.h"
#include "polarline/detect.h"

namespace {

using nlohmann::json;

constexpr const char* kSchema = "polarline-detect-1.schema.json";

std::string documentOf(const polarline::Detection& detection) {
  return detectionJson(detection, "a.png", "target.ini");
}

TEST(DetectionJson, TellsTheDetection) {
  polarline::Detection detection = gridDetection(2, 3, 20.0);
  drop(detection, 4);
  detection.warnings.push_back({"few", "text", "advice"});
  detection.classes.dots = 5;
  detection.contours.traced = 8;
  const json document = json::parse(documentOf(detection));
  EXPECT_EQ(document["schema"], "polarline-detect/1");
  EXPECT_EQ(document["image"], json::parse(R"({"width": 640, "height": 480, "path": "a.png"})"));
  EXPECT_EQ(document["target"], "target.ini");
  EXPECT_EQ(document["found"], true);
  EXPECT_EQ(document["step"], "done");
  EXPECT_EQ(document["retry"], false);
  EXPECT_EQ(document["searched"], json::parse(R"({"width": 1280, "height": 960})"));
  EXPECT_EQ(document["board"]["points"], 6);
  EXPECT_EQ(document["dots"]["id"], json::parse("[0, 1, 2, 3, 5]"));
  EXPECT_EQ(document["dots"]["row"], json::parse("[0, 0, 0, 1, 1]"));
  EXPECT_EQ(document["dots"]["column"], json::parse("[0, 1, 2, 0, 2]"));
  EXPECT_EQ(document["dots"]["x"], json::parse("[20.0, 40.0, 60.0, 20.0, 60.0]"));
  EXPECT_EQ(document["missing"], json::parse("[4]"));
  EXPECT_EQ(document["classes"]["dot"], 5);
  EXPECT_EQ(document["contours"]["traced"], 8);
  EXPECT_EQ(document["ellipses"].size(), 5U);
  EXPECT_EQ(document["warnings"][0]["code"], "few");
}

TEST(DetectionJson, HasNullForWhatIsNotFiniteOrNotThere) {
  polarline::Detection detection = gridDetection(1, 1, 20.0);
  detection.dots[0].x = std::numeric_limits<double>::quiet_NaN();
  detection.dot_radius = 0.0;
  detection.working_size = {};
  const json document = json::parse(documentOf(detection));
  EXPECT_TRUE(document["dots"]["x"][0].is_null());
  EXPECT_TRUE(document["dot_radius"].is_null());
  EXPECT_TRUE(document["searched"].is_null());
}

TEST(DetectionJson, NamesOfAnyBytesGiveADocument) {
  const json document = json::parse(detectionJson(gridDetection(1, 1, 20.0), "a\"b\n\xff.png", "t \\ ü.ini"));
  EXPECT_EQ(document["image"]["path"], "a\"b\n\xEF\xBF\xBD.png");
  EXPECT_EQ(document["target"], "t \\ ü.ini");
}

TEST(DetectionJson, EveryDocumentFitsTheSchema) {
  const BoardPicture board(scene::BoardKind::kSmallRings, 320, 256);
  EXPECT_EQ(schemaProblem(documentOf(polarline::detect(board.image(), board.target())), kSchema), "");
  EXPECT_EQ(
      schemaProblem(documentOf(polarline::detect(cv::Mat(256, 320, CV_8UC1, cv::Scalar(9)), board.target())), kSchema),
      "");
  EXPECT_EQ(schemaProblem(documentOf(polarline::detect({}, board.target())), kSchema), "");
  polarline::Detection odd = polarline::detect(board.image(), board.target());
  odd.step = "elsewhere";
  EXPECT_NE(schemaProblem(documentOf(odd), kSchema), "") << "the check itself works";
}

}  // namespace
