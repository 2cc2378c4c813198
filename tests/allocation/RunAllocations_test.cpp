#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <opencv2/imgcodecs.hpp>

#include "allocation/RepeatableProcess.h"
#include "allocation/Sweep.h"
#include "polar/run/PolarPrecision.h"
#include "support/FigureText.h"
#include "support/FolderContents.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"

namespace {

/// Runs into a folder that holds an earlier run's summary.
struct RunAllocations : ::testing::Test {
  static constexpr std::size_t kAll = std::numeric_limits<std::size_t>::max();
  static constexpr const char* kEarlier = "align_data_0.csv";

  TempFolder folder;
  std::vector<PolarResultRecord> results;

  RunAllocations() { folder.write(kEarlier, "of an earlier run"); }

  RepeatedCall into(std::function<std::int32_t()> run) {
    RepeatedCall call;
    call.reset = [this] {
      for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        if (entry.path().extension() == ".csv" && entry.path().filename() != kEarlier)
          std::filesystem::remove(entry.path());
      }
      results = std::vector<PolarResultRecord>(1);
      results[0].dy_means = 4711.0;
    };
    call.make = std::move(run);
    call.held = [this] { return FigureText::of(results); };
    call.tables = [this] {
      RepeatedCall::Files tables = contentsOf(folder.path());
      std::erase_if(tables, [](const auto& table) { return !table.first.ends_with(".csv"); });
      return tables;
    };
    return call;
  }

  RepeatedCall inMemory(const RenderedSet& set, const std::string& polar, const std::string& target) {
    return into([this, polar, target, calibration = set.calibration(), images = set.images()] {
      return CalPolarLinePrecisionOutMat(polar.c_str(), target.c_str(), calibration, images, &results, nullptr,
                                         folder.path().c_str());
    });
  }

  /// A list beside the results; the images stay where they are.
  std::string listOf(const RenderedSet& set) const {
    const std::string there = std::filesystem::relative(set.file("."), folder.path()).string();
    return folder.write("list.txt", "#L R\n" + there + "/left_0.png " + there + "/right_0.png\n");
  }

  /// With its undisturbed call each point of a measuring run takes some hundredths of a second, and ten times as long
  /// under the sanitizers: POINTS_OF_A_RUN are tried, or all with ALL_POINTS in the environment.
  static void expectSound(const RepeatedCall& call, std::size_t fewest_places, std::size_t points = POINTS_OF_A_RUN) {
    const RepeatableProcess process;
    const std::size_t most_points = std::getenv("ALL_POINTS") != nullptr ? kAll : points;
    const Swept swept = refuseMemoryEverywhere(call, most_points);
    EXPECT_GE(swept.places, fewest_places);
    EXPECT_GE(swept.tried, std::min(swept.points, most_points) / 2);
    RecordProperty("places", static_cast<int>(swept.places));
    RecordProperty("points", static_cast<int>(swept.points));
    RecordProperty("tried", static_cast<int>(swept.tried));
  }
};

/// A run without evaluations takes so little that every point is tried.
TEST_F(RunAllocations, OfARunThatOnlyWalksItsPairs) {
  cv::imwrite(folder.file("grey.png"), cv::Mat(30, 40, CV_8UC1, cv::Scalar(90)));
  const std::string list = folder.write("list.txt", "#L R\ngrey.png grey.png\ngrey.png grey.png\n");
  const std::string calibration =
      folder.write("calib.json", R"({"IR_L": {"Fx": 1.5}, "IR_R": {"Fx": 1.5}, "RGB": {"Fx": 1.5}})");
  const std::string polar = folder.write("polar.txt", "evaluation: 1\nspaceRms_switch: 0\nTriPoint1_GT: [1,2,3]");
  const RepeatedCall call = into([&] {
    return CalPolarLinePrecision(polar.c_str(), "board_type: 2", calibration.c_str(), list.c_str(), &results);
  });
  expectSound(call, 100, kAll);
}

TEST_F(RunAllocations, OfInputsThatAreReadAndNotUsed) {
  const RenderedSet set(small_scene::dots());
  RepeatedCall call = into([&] {
    return CalTempCompensateCoeff(set.file("polar.txt").c_str(), "", set.file("calib.json").c_str(),
                                  set.file("list.txt").c_str());
  });
  expectSound(call, 50, kAll);
}

/// The caller's vector has room for the record, so that its assignment would begin in place.
TEST_F(RunAllocations, OfTheResultsOnTheirWayToTheCaller) {
  PolarPrecision precision;
  PolarResultRecord record;
  record.dy_means = 0.25;
  record.id_dis = {1.0, 2.0};
  record.frameValues = {3.0};
  record.pairPoints.resize(2);
  record.pairPoints[1].dis_errors = {{1, 0.5F}};
  precision.results = {record};
  expectSound(into([&] { return precision.FetchResults(results); }), 4, kAll);
}

TEST_F(RunAllocations, OfAnImageSetOnDisk) {
  const RenderedSet set(small_scene::dots());
  const std::string list = listOf(set);
  expectSound(into([&] {
                return CalPolarLinePrecision(set.file("polar.txt").c_str(), set.file("target.ini").c_str(),
                                             set.file("calib.json").c_str(), list.c_str(), &results);
              }),
              500);
}

TEST_F(RunAllocations, OfAnImageSetInMemory) {
  const RenderedSet set(small_scene::dots());
  expectSound(inMemory(set, set.polarWith({{"eccentricity", "1"}}), set.file("target.ini")), 500);
}

TEST_F(RunAllocations, OfAFrameRun) {
  const RenderedSet set(small_scene::frame());
  expectSound(inMemory(set, set.polarText(), set.file("target.ini")), 300);
}

TEST_F(RunAllocations, OfPolynomialLenses) {
  const RenderedSet set(small_scene::polynomial());
  expectSound(inMemory(set, set.polarText(), set.file("target.yml")), 500);
}

TEST_F(RunAllocations, OfCirclesInAMiddleImage) {
  const RenderedSet set(small_scene::circles());
  RepeatedCall call = inMemory(set, "triangulate_residual_switch: 1\nevaluation: 1", set.file("target.json"));
  call.spared_function = "eigenNonSymmetric";  // OpenCV's, within the direct fit of an ellipse.
  expectSound(call, 200);
}

TEST_F(RunAllocations, OfARingBoard) {
  const RenderedSet set(small_scene::rings());
  expectSound(inMemory(set, "triangulate_residual_switch: 1\nevaluation: 1", set.file("target.json")), 250);
}

TEST_F(RunAllocations, OfARectificationRun) {
  const RenderedSet set(small_scene::rectified());
  const std::string list = listOf(set);
  const scene::Camera& camera = set.scene().rig.left;
  RectifiedParams rectified{camera.fx, -small_scene::kDotSize.baseline, camera.cx, camera.cy, 0.0, {}};
  for (const cv::Point3f& point : set.calibration().boardPoints) rectified.boardPoints.emplace_back(point);
  expectSound(into([&] {
                return CalRecificationPrecision(set.file("polar.txt").c_str(), set.file("target.ini").c_str(),
                                                rectified, list.c_str(), &results);
              }),
              250);
}

}  // namespace
