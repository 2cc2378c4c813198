#include "check/run/CalibrationLook.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "check/run/CalibrationInput.h"
#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

using Json = nlohmann::json;
using ::testing::HasSubstr;

Json camera() {
  Json numbers = {{"Fx", 610}, {"Fy", 610.5}, {"Cx", 327.25}, {"Cy", 234.75}};
  for (const char* name : {"K1", "K2", "K3", "K4", "K5", "K6", "P1", "P2"}) numbers[name] = 0.0;
  return numbers;
}

Json rotation() { return {{"RX", 0.0}, {"RY", 0.01}, {"RZ", 0}}; }
Json translation() { return {{"TX", -60.0}, {"TY", 0}, {"TZ", 0.5}}; }

Json infrared() {
  Json document = {{"IR_L", camera()}, {"IR_R", camera()}, {"RGB", Json::object()}};
  document["IR_R"]["Rotate"] = rotation();
  document["IR_R"]["Translate"] = translation();
  return document;
}

Json depth(const char* colour) {
  return {
      {"DEPTH", camera()}, {colour, camera()}, {"Depth2RGB_Rotate", rotation()}, {"Depth2RGB_Trans", translation()}};
}

struct CalibrationLook : ::testing::Test {
  TempFolder folder;

  /// What the reading of a check says of the document, without its path; empty: nothing.
  std::string refusal(const std::string& text) const {
    const std::string path = folder.write("calib.json", text);
    std::vector<Warning> warnings;
    try {
      readCalibration(path, warnings);
    } catch (const InputError& error) {
      const std::string words = error.what();
      EXPECT_EQ(words.rfind(path, 0), 0U) << words;
      return words.substr(path.size());
    }
    return "";
  }
  std::string refusal(const Json& document) const {
    const std::string words = refusal(document.dump());
    EXPECT_EQ(words.rfind(": ", 0), 0U) << words;
    return words.substr(2);
  }

  /// The codes and texts that it warns with, the path left out; it has to go on.
  std::string warning(const Json& document) const {
    const std::string path = folder.write("calib.json", document.dump());
    std::vector<Warning> warnings;
    readCalibration(path, warnings);
    std::string all;
    for (const Warning& each : warnings) {
      EXPECT_EQ(each.text.rfind(path + ": ", 0), 0U) << each.text;
      EXPECT_FALSE(each.advice.empty());
      all += each.code + ": " + each.text.substr(path.size() + 2) + "\n";
    }
    return all;
  }
  static Json without(Json document, const std::string& place) {
    const Json::json_pointer at(place);
    document[at.parent_pointer()].erase(at.back());
    return document;
  }
};

TEST_F(CalibrationLook, TakesEachLayout) {
  EXPECT_EQ(warning(infrared()), "");
  EXPECT_EQ(warning(depth("RGB")), "");
  EXPECT_EQ(warning(depth("COLOR")), "");
}

TEST_F(CalibrationLook, WarnsOfMembersThatAreNotThere) {
  const std::string begin = "calibration_member: 0 stands for what is not there: ";
  for (const auto& [place, names] : {std::pair{"/IR_L/K2", "IR_L.K2"},
                                     {"/IR_R/Cx", "IR_R.Cx"},
                                     {"/IR_R/Rotate", "IR_R.Rotate.RX, IR_R.Rotate.RY, IR_R.Rotate.RZ"},
                                     {"/IR_R/Translate/TZ", "IR_R.Translate.TZ"}})
    EXPECT_EQ(warning(without(infrared(), place)), begin + names + "\n");
  EXPECT_EQ(warning(without(depth("RGB"), "/Depth2RGB_Trans/TY")), begin + "Depth2RGB_Trans.TY\n");
}

TEST_F(CalibrationLook, RefusesAFocalLengthThatIsNotThere) {
  EXPECT_EQ(refusal(without(infrared(), "/IR_R/Fy")), "IR_R.Fy: is not there; a number was wanted");
  EXPECT_EQ(refusal(without(infrared(), "/IR_L/Fx")), "IR_L.Fx: is not there; a number was wanted");
}

TEST_F(CalibrationLook, WarnsOfCamerasInOnePlace) {
  Json document = infrared();
  document["IR_R"]["Translate"] = {{"TX", 0}, {"TY", 0.0}, {"TZ", 0}};
  EXPECT_EQ(warning(document), "no_baseline: TX, TY and TZ are 0\n");
  document = infrared();
  document.update(depth("RGB"));
  EXPECT_EQ(warning(document), "two_poses: Depth2RGB_Rotate stands beside IR_R.Rotate\n");
}

TEST_F(CalibrationLook, NamesAMemberThatIsNoNumber) {
  for (const auto& [place, value, words] :
       {std::tuple{"/IR_R/Rotate/RX", Json("q"), "IR_R.Rotate.RX: 'q' was found; a number was wanted"},
        std::tuple{"/IR_L/Fx", Json("abc"), "IR_L.Fx: 'abc' was found; a number was wanted"},
        std::tuple{"/IR_L/P2", Json::array({1}), "IR_L.P2: a list was found; a number was wanted"},
        std::tuple{"/IR_R/K1", Json({{"a", 1}}), "IR_R.K1: an object was found; a number was wanted"}}) {
    Json document = infrared();
    document[Json::json_pointer(place)] = value;
    EXPECT_EQ(refusal(document), words);
  }
}

TEST_F(CalibrationLook, RefusesAFocalLengthThatIsNotAboveZero) {
  Json document = infrared();
  document["IR_R"]["Fx"] = -600;
  EXPECT_EQ(refusal(document),
            "the right camera has no focal length: Fx -600, Fy 610.5 was found; numbers above 0 were wanted");
  document = infrared();
  document["IR_L"]["Fy"] = 0;
  EXPECT_THAT(refusal(document), HasSubstr("the left camera has no focal length"));
}

TEST_F(CalibrationLook, SaysInWordsWhatIsNoJson) {
  const std::string whole = infrared().dump();
  EXPECT_THAT(refusal("{\n" + whole.substr(1, 3)), HasSubstr(", line 2, column 4: is no JSON: "));
}

}  // namespace
}  // namespace polarline
