// One number of a text after the other becomes what no text should hold: the call must end, and the next one be right.
#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "support/OddNumbers.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"

namespace {

using odd_numbers::Calls;
using Results = Calls::Results;

constexpr std::size_t kMostMemory = std::size_t{1} << 30U;

/// Pictures take longer than all the rest; the odd numbers switch them on.
std::string withoutPictures(std::string polar) {
  for (const std::string key : {"savepolarline: ", "savepng_swithch: "}) {
    for (std::size_t at = polar.find(key); at != std::string::npos; at = polar.find(key, at + 1))
      polar.at(at + key.size()) = '0';
  }
  return polar;
}

/// A set with its inputs at hand.
struct Inputs {
  RenderedSet set;
  ExportedCalibParams calibration;
  ImagePairList images;

  explicit Inputs(const scene::Scene& scene) : set(scene), calibration(set.calibration()), images(set.images()) {}

  static const Inputs& dots() {
    static const Inputs inputs(small_scene::dots());
    return inputs;
  }
  Calls::Call run(const std::string& polar, const std::string& target, const std::string& folder = "") const {
    return [=, this](Results& results) {
      return CalPolarLinePrecisionOutMat(polar.c_str(), target.c_str(), calibration, images, &results, nullptr,
                                         folder.c_str());
    };
  }
  /// Every evaluation and nothing on disk.
  std::string polar() const {
    std::vector<std::pair<std::string, std::string>> off;
    for (const char* key : {"savepolarline", "evaluation", "tri_bias_savepng_swithch", "tir_bias_savecsv_swithch",
                            "dy_bias_savecsv_swithch", "dy_bias_savepng_swithch", "allpointssavecsv_swithch"})
      off.emplace_back(key, "0");
    return set.polarWith(off);
  }
  std::string target() const { return set.file("target.ini"); }
};

struct OddTexts : ::testing::Test {
  TempFolder folder;
  std::size_t memory_before = odd_numbers::peakMemory();

  void TearDown() override { EXPECT_LT(odd_numbers::peakMemory() - memory_before, kMostMemory); }
  static void expectNumbers(const Calls& calls, std::size_t least) { EXPECT_GE(calls.replacedNumbers(), least); }
};

TEST_F(OddTexts, PolarConfigurationOfAnImageSet) {
  const Inputs& in = Inputs::dots();
  const std::string good = withoutPictures(in.set.polarText());
  Calls calls(in.run(good, in.target(), folder.path().string()));
  calls.sweep(good, odd_numbers::kTexts, [&](const std::string& polar) {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) std::filesystem::remove_all(entry);
    return in.run(polar, in.target(), folder.path().string());
  });
  expectNumbers(calls, 60);
}

TEST_F(OddTexts, PolarConfigurationOfAFrameRun) {
  const Inputs in(small_scene::frame());
  const std::string good = in.polar();
  const std::string head = good.substr(0, good.find("frame_work"));
  const std::string frame = good.substr(head.size());
  Calls calls(in.run(good, in.target()));
  calls.sweep(frame, odd_numbers::kTexts,
              [&](const std::string& changed) { return in.run(head + changed, in.target()); });
  expectNumbers(calls, 60);
}

TEST_F(OddTexts, TargetOfBigDots) {
  const Inputs& in = Inputs::dots();
  const std::string polar = "triangulate_residual_switch: 1\ndy_bias_switch: 1\ntype: 1\nspaceRms_switch: 0";
  const std::string good = in.set.text("target.ini");
  Calls calls(in.run(polar, good));
  calls.sweep(good, odd_numbers::kDocumentTexts, [&](const std::string& target) { return in.run(polar, target); });
  expectNumbers(calls, 25);
}

TEST_F(OddTexts, TargetOfRings) {
  const Inputs in(small_scene::rings());
  const std::string good = in.set.text("target.ini");
  Calls calls(in.run("triangulate_residual_switch: 1\ntype: 1", good));
  calls.sweep(good, odd_numbers::kDocumentTexts,
              [&](const std::string& target) { return in.run("triangulate_residual_switch: 1\ntype: 1", target); });
  expectNumbers(calls, 11);
}

TEST_F(OddTexts, TargetDocuments) {
  const Inputs& in = Inputs::dots();
  const std::string polar = "triangulate_residual_switch: 1\ntype: 1\nspaceRms_switch: 0\neccentricity: 1";
  Calls calls(in.run(polar, in.set.file("target.json")));
  calls.sweep(in.set.text("target.json"), odd_numbers::kDocumentTexts,
              [&](const std::string& document) { return in.run(polar, folder.write("target.json", document)); });
  calls.sweep(in.set.text("target.yml"), odd_numbers::kDocumentTexts,
              [&](const std::string& document) { return in.run(polar, folder.write("target.yml", document)); });
  expectNumbers(calls, 50);
}

TEST_F(OddTexts, JsonCalibration) {
  const Inputs& in = Inputs::dots();
  const std::string images = std::filesystem::relative(in.set.file("x"), folder.path()).parent_path().string();
  const std::string list = folder.write("list.txt", "#L R\n" + images + "/left_0.png " + images + "/right_0.png\n");
  const auto run = [&](const std::string& calibration) -> Calls::Call {
    return [&in, &list, calibration](Results& results) {
      return CalPolarLinePrecision(in.polar().c_str(), in.target().c_str(), calibration.c_str(), list.c_str(),
                                   &results);
    };
  };
  Calls calls(run(in.set.calibrationFile()));
  const std::string good = in.set.text("calib.json");
  calls.sweep(good, odd_numbers::kDocumentTexts,
              [&](const std::string& document) { return run(folder.write("calib.json", document)); });
  expectNumbers(calls, 30);
}

TEST_F(OddTexts, BoardLists) {
  const Inputs& in = Inputs::dots();
  // One point is like the other: the first, one in the middle and the last.
  constexpr std::array<std::size_t, 3> kLines = {0, 31, 62};
  std::vector<std::string> all;
  std::istringstream stream(in.set.text("board_gt.txt"));
  for (std::string line; std::getline(stream, line);) all.push_back(line + "\n");
  Calls calls(in.run(in.polar(), in.target()));
  for (const std::size_t line : kLines) {
    calls.sweep(all.at(line), odd_numbers::kTexts, [&](const std::string& changed) -> Calls::Call {
      std::string list;
      for (std::size_t k = 0; k < all.size(); ++k) list += k == line ? changed : all[k];
      ExportedCalibParams calibration = in.calibration;
      calibration.boardPoints.clear();
      ReadBoardGTFromTxt(folder.write("board.txt", list), &calibration.boardPoints);
      return [&in, calibration](Results& results) {
        return CalPolarLinePrecisionOutMat(in.polar().c_str(), in.target().c_str(), calibration, in.images, &results,
                                           nullptr, nullptr);
      };
    });
  }
  expectNumbers(calls, 9);
}

TEST_F(OddTexts, BoardReports) {
  std::string row;
  for (int field = 0; field < 90; ++field) row += std::to_string(field) + (field == 89 ? "\n" : ",");
  const std::vector<odd_numbers::Place> places = odd_numbers::placesIn(row);
  ASSERT_EQ(places.size(), 90U);
  for (const odd_numbers::Place& place : places) {
    for (const char* const number : odd_numbers::kTexts) {
      const std::string path =
          folder.write("board.csv", "\n\n\n\n\n\n\n\n\n\n" + odd_numbers::replaced(row, place, number));
      for (const bool second_layout : {false, true}) {
        BoardGroundTruth points;
        EXPECT_EQ(ReadBoardGTFromCSV(path, &points, second_layout), 0);
        EXPECT_EQ(points.size(), 42U);
      }
    }
  }
}

}  // namespace
