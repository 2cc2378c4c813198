// One number of a record or of a binary file after the other becomes what none should hold: the call must end, and the
// next one be right.
#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/OddNumbers.h"
#include "support/RenderedSet.h"
#include "support/SmallScene.h"
#include "tools/scene/CalibrationBinary.h"
#include "tools/scene/SceneFiles.h"

namespace {

using odd_numbers::Calls;
using Results = Calls::Results;

/// A lens model under which a calibration in memory is read.
struct Reading {
  const char* name;
  const char* lines;  ///< Further lines of the polar configuration.
};

/// Every evaluation, nothing on disk.
std::string polarOf(const RenderedSet& set, const std::string& lines) {
  return set.polarText() +
         "\nsavepolarline: 0\nevaluation: 0\ntri_bias_savepng_swithch: 0\ntir_bias_savecsv_swithch: 0\n"
         "dy_bias_savepng_swithch: 0\ndy_bias_savecsv_swithch: 0\nallpointssavecsv_swithch: 0\ndiscalsave: 0\n" +
         lines;
}

/// The board check triangulates what the raw pair's evaluation has triangulated.
constexpr const char* kNoBoardCheck = "spaceRms_switch: 0";

struct OddRecordsCalibration : ::testing::TestWithParam<Reading> {
  RenderedSet set{small_scene::dots()};
  ImagePairList images = set.images();
  ExportedCalibParams calibration = set.calibration();
  std::string polar = polarOf(set, GetParam().lines);

  std::int32_t run(Results& results) const {
    return CalPolarLinePrecisionOutMat(polar.c_str(), set.file("target.ini").c_str(), calibration, images, &results,
                                       nullptr, nullptr);
  }
};

TEST_P(OddRecordsCalibration, EndsEachRunAndSparesTheNext) {
  const Calls::Call call = [this](Results& results) { return run(results); };
  Calls calls(call);
  for (ExportedCameraCalib* const camera : {&calibration.left, &calibration.right}) {
    calls.sweepNumbers("intrinsics", camera->intrinsics, call);
    calls.sweepNumber("width", camera->width, call);
    calls.sweepNumber("height", camera->height, call);
  }
  calls.sweepNumbers("extrinsics", calibration.extrinsics, call);
  EXPECT_EQ(calls.replacedNumbers(), 34U);
}

INSTANTIATE_TEST_SUITE_P(Lenses, OddRecordsCalibration,
                         ::testing::Values(Reading{"FiveCoefficients", "type: 0\nf_scale: 0.9"},
                                           Reading{"EightCoefficients", "eccentricity: 1"},
                                           Reading{"Fisheye", "type: 2\ndiscalsave: 0"}),
                         [](const auto& lens) { return lens.param.name; });

struct OddRecords : ::testing::Test {
  static void expectNumbers(const Calls& calls, std::size_t numbers) { EXPECT_EQ(calls.replacedNumbers(), numbers); }
};

/// The coefficients of one cell, which is like all others, and the sizes. The intrinsics are read from a file below.
TEST_F(OddRecords, PolynomialCameras) {
  const RenderedSet set(small_scene::polynomial());
  const ImagePairList images = set.images();
  const std::string polar = polarOf(set, kNoBoardCheck);
  ExportedCalibParams calibration = set.calibration();
  const Calls::Call call = [&](Results& results) {
    return CalPolarLinePrecisionOutMat(polar.c_str(), set.file("target.ini").c_str(), calibration, images, &results,
                                       nullptr, nullptr);
  };
  Calls calls(call);
  constexpr std::size_t kMiddleCell = 9 * 10;
  for (ExportedCameraCalib* const camera : {&calibration.left, &calibration.right}) {
    for (std::size_t k = kMiddleCell; k < kMiddleCell + 10; ++k) {
      calls.sweepNumber("poly_x", camera->poly_x.at(k), call);
      calls.sweepNumber("poly_y", camera->poly_y.at(k), call);
    }
    calls.sweepNumber("width", camera->width, call);
    calls.sweepNumber("height", camera->height, call);
    for (std::uint8_t* const cells : {&camera->poly_nx, &camera->poly_ny}) {
      const std::uint8_t kept = *cells;
      for (const int count : {0, 1, 25, 50, 255}) {
        *cells = static_cast<std::uint8_t>(count);
        calls.expectEnds("cells = " + std::to_string(count), call);
      }
      *cells = kept;
    }
  }
  calls.expectGood("cells");
  expectNumbers(calls, 44);
}

TEST_F(OddRecords, BoardPointsInMemory) {
  const RenderedSet set(small_scene::dots());
  const ImagePairList images = set.images();
  const std::string polar = polarOf(set, "eccentricity: 1");
  ExportedCalibParams calibration = set.calibration();
  const Calls::Call call = [&](Results& results) {
    return CalPolarLinePrecisionOutMat(polar.c_str(), set.file("target.ini").c_str(), calibration, images, &results,
                                       nullptr, nullptr);
  };
  Calls calls(call);
  for (const std::size_t id : {0U, 31U, 62U}) {
    cv::Point3f& point = calibration.boardPoints.at(id);
    for (float* const number : {&point.x, &point.y, &point.z}) calls.sweepNumber("point", *number, call);
  }
  expectNumbers(calls, 9);
}

TEST_F(OddRecords, RectifiedGeometry) {
  const RenderedSet set(small_scene::rectified());
  const scene::Camera& camera = set.scene().rig.left;
  RectifiedParams rectified{camera.fx, -small_scene::kDotSize.baseline, camera.cx, camera.cy, 0.0, {}};
  for (const cv::Point3f& point : set.calibration().boardPoints) rectified.boardPoints.emplace_back(point);
  const std::string polar = polarOf(set, "");
  const Calls::Call call = [&](Results& results) {
    return CalRecificationPrecision(polar.c_str(), set.file("target.ini").c_str(), rectified,
                                    set.file("list.txt").c_str(), &results);
  };
  Calls calls(call);
  for (double* const number :
       {&rectified.focal, &rectified.baseline, &rectified.cx, &rectified.cy, &rectified.disparity_offset})
    calls.sweepNumber("rectified", *number, call);
  for (const std::size_t id : {20U, 24U}) {
    cv::Point3d& point = rectified.boardPoints.at(id);
    for (double* const number : {&point.x, &point.y, &point.z}) calls.sweepNumber("point", *number, call);
  }
  expectNumbers(calls, 11);
}

/// A binary calibration that is right in its form and odd in one number.
struct OddRecordsBinary : OddRecords {
  RenderedSet set{small_scene::polynomial()};
  std::string polar = polarOf(set, kNoBoardCheck);
  TempFolder folder;
  std::vector<scene::BinaryCamera> cameras = scene::binaryCameras(set.scene().given);

  std::int32_t run(Results& results) const {
    scene::writeCalibrationBinary(folder.file("calib.bin"), cameras);
    return CalPolarLinePrecision(polar.c_str(), set.file("target.ini").c_str(), folder.file("calib.bin").c_str(),
                                 set.file("list.txt").c_str(), &results);
  }
};

TEST_F(OddRecordsBinary, EndsEachRunAndSparesTheNext) {
  const Calls::Call call = [this](Results& results) { return run(results); };
  Calls calls(call);
  for (scene::BinaryCamera& camera : cameras) {
    calls.sweepNumbers("parameters", camera.parameters, call);
    calls.sweepNumbers("extrinsics", camera.extrinsics, call);
    for (std::size_t k = 90; k < 100; ++k) {
      calls.sweepNumber("table x", camera.table.x.at(k), call);
      calls.sweepNumber("table y", camera.table.y.at(k), call);
    }
    for (std::int32_t* const size : {&camera.height, &camera.width}) {
      const std::int32_t kept = *size;
      for (const std::int32_t pixels :
           {0, -1, 1, 65536, std::numeric_limits<std::int32_t>::max(), std::numeric_limits<std::int32_t>::min()}) {
        *size = pixels;
        calls.expectEnds("size = " + std::to_string(pixels), call);
      }
      *size = kept;
    }
  }
  calls.expectGood("sizes");
  expectNumbers(calls, 2 * (cameras[0].parameters.size() + 6 + 20));
}

/// The text form of the tables: some lines of each file, and the run on what was read.
TEST_F(OddRecords, TextTables) {
  const RenderedSet set(small_scene::polynomial());
  const ImagePairList images = set.images();
  const ExportedCalibParams calibration = set.calibration();
  const TempFolder folder;
  const std::string polar = polarOf(set, kNoBoardCheck);
  const std::string target = set.file("target.ini");
  const auto run = [&](Results& results) {
    ExportedCalibParams read = calibration;
    EXPECT_EQ(ReadTxtPolyParams(folder.path().string(), &read), 0);
    read.left.width = read.right.width = calibration.left.width;
    read.left.height = read.right.height = calibration.left.height;
    return CalPolarLinePrecisionOutMat(polar.c_str(), target.c_str(), read, images, &results, nullptr, nullptr);
  };
  const auto linesOf = [](const std::array<float, 500>& table, std::size_t from, std::size_t to) {
    std::string lines;
    for (std::size_t k = from; k < to; ++k) lines += std::to_string(table.at(k)) + "\n";
    return lines;
  };
  const std::array<std::pair<const char*, const std::array<float, 500>*>, 4> tables = {
      {{"polyparamirl_x.txt", &calibration.left.poly_x},
       {"polyparamirl_y.txt", &calibration.left.poly_y},
       {"polyparamirr_x.txt", &calibration.right.poly_x},
       {"polyparamirr_y.txt", &calibration.right.poly_y}}};
  Calls calls([&](Results& results) {
    for (const auto& [name, table] : tables) folder.write(name, linesOf(*table, 0, 500));
    return run(results);
  });
  for (const auto& [name, table] : tables) {
    // One line is read like the other.
    const std::string before = linesOf(*table, 0, 97);
    const std::string behind = linesOf(*table, 100, 500);
    calls.sweep(linesOf(*table, 97, 100), odd_numbers::kTexts, [&, file = name](const std::string& lines) {
      folder.write(file, before + lines + behind);
      return run;
    });
  }
  expectNumbers(calls, 12);
}

}  // namespace
