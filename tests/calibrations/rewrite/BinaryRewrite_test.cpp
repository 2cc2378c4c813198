#include "calibrations/rewrite/BinaryRewrite.h"

#include <gtest/gtest.h>

#include <string>

#include "input/BinaryCalibration.h"
#include "support/TempFolder.h"
#include "tests/input/CalibrationBytes.h"

namespace {

using calibration_bytes::Camera;

/// What a run would read of the bytes.
StereoCalibParams readOf(const std::string& bytes) {
  const TempFolder folder;
  folder.write("calib.bin", bytes);
  StereoCalibParams calib;
  EXPECT_EQ(loadStereoCalibration(folder.file("calib.bin"), calib), 0);
  return calib;
}

std::string rewritten(const std::string& bytes, const StereoCalibParams& calib) {
  const std::vector<std::uint8_t> result = withRightCamera({bytes.begin(), bytes.end()}, calib);
  return {result.begin(), result.end()};
}

/// The camera `is` with other numbers where a correction has them.
Camera other(Camera is) {
  is.extrinsics = {0.4F, -0.2F, 0.7F, -61.0F, 1.5F, 0.125F};
  is.first_parameter = 5.0F;
  is.first_coefficient = 3000.0F;
  return is;
}

/// Parameters that are not read and cells beyond the grid stay as they were, so that a grid of all cells is taken.
Camera full(Camera is) {
  is.poly_nx = 5;
  is.poly_ny = 5;
  return is;
}

/// The kept floats of a rewritten file are the new ones, the others those of the file.
std::string withStoredTail(std::string bytes, const std::string& of, std::size_t kept, std::size_t stored) {
  const std::size_t entry = 50 + 54 + stored * 4 + 1 + 2017 + 2, tail = entry + 54 + kept * 4;
  return bytes.replace(tail, (stored - kept) * 4, of, tail, (stored - kept) * 4);
}

TEST(BinaryRewriteMainForm, HasTheOtherRightCameraAndAllElseAsItWas) {
  const struct {
    Camera camera;
    std::size_t kept;
  } models[] = {{calibration_bytes::brown(), 12},
                {calibration_bytes::kb(), 8},
                {calibration_bytes::ds(), 6},
                {calibration_bytes::mei(), 10}};
  for (const auto& [camera, kept] : models) {
    const Camera left = full(camera), right = full(camera);
    const std::string given = calibration_bytes::mainForm({left, right});
    const std::string wanted = calibration_bytes::mainForm({left, other(right)});
    EXPECT_EQ(rewritten(given, readOf(wanted)), withStoredTail(wanted, given, kept, camera.stored_parameters))
        << camera.model;
  }
}

TEST(BinaryRewriteMainForm, LeavesCellsThatNoRunTakes) {
  const Camera left = calibration_bytes::brown();  // 24 cells.
  const std::string given = calibration_bytes::mainForm({left, left});
  const std::string result = rewritten(given, readOf(calibration_bytes::mainForm({left, other(left)})));
  const std::size_t table = 50 + 54 + 81 + 2017 + 2 + 54 + 81, last_cell = table + 2 + 24 * 80;
  EXPECT_EQ(result.substr(last_cell, 80), given.substr(last_cell, 80));
  EXPECT_NE(result.substr(last_cell - 80, 80), given.substr(last_cell - 80, 80));
}

TEST(BinaryRewriteMainForm, LeavesAThirdCamera) {
  const Camera camera = full(calibration_bytes::brown());
  const std::string given = calibration_bytes::mainForm({camera, camera, camera});
  const std::string wanted = calibration_bytes::mainForm({camera, other(camera), camera});
  const std::size_t entry = 54 + 81 + 2017 + 2 + 24, tail = 50 + entry + 54 + 48;
  std::string expected = wanted;
  expected.replace(tail, 32, given, tail, 32);
  EXPECT_EQ(rewritten(given, readOf(wanted)), expected);
}

TEST(BinaryRewriteTabledForm, RenewsTheChecksThatAReaderTests) {
  const Camera camera = calibration_bytes::brown();
  const std::string given = calibration_bytes::sealTabled(calibration_bytes::tabledEntries({camera, camera}));
  const StereoCalibParams wanted =
      readOf(calibration_bytes::sealTabled(calibration_bytes::tabledEntries({camera, other(camera)})));
  const StereoCalibParams result = readOf(rewritten(given, wanted));
  EXPECT_EQ(result.right.intrinsics, wanted.right.intrinsics);
  EXPECT_EQ(result.right.poly_x, wanted.right.poly_x);
  EXPECT_EQ(result.right.poly_y, wanted.right.poly_y);
  EXPECT_EQ(result.extrinsics, wanted.extrinsics);
  EXPECT_EQ(result.left.intrinsics, wanted.left.intrinsics);
}

TEST(BinaryRewriteCheckBytes, AreRenewedWhereTheyWereRight) {
  const Camera camera = full(calibration_bytes::brown());
  // The check bytes of the parameters, the camera, the entry and the file, as CRC-8 of what stands before.
  const auto sealed = [](std::string bytes) {
    const std::size_t right = 50 + 54 + 81 + 2017 + 2;
    const auto seal = [&bytes](std::size_t first, std::size_t place) {
      bytes[place] = static_cast<char>(calibration_bytes::crcOf(bytes.substr(first, place - first)));
    };
    seal(right + 54, right + 54 + 80);
    seal(right, right + 54 + 81 + 2017);
    seal(right, right + 54 + 81 + 2017 + 1 + 24);
    seal(0, bytes.size() - 1);
    return bytes;
  };
  const std::string given = calibration_bytes::mainForm({camera, camera});
  const std::string wanted = calibration_bytes::mainForm({camera, other(camera)});
  EXPECT_EQ(rewritten(sealed(given), readOf(wanted)), sealed(withStoredTail(wanted, given, 12, 20)));
}

TEST(BinaryRewrite, WithTheCamerasThatItHasIsTheSame) {
  const Camera camera = calibration_bytes::brown();
  const std::string given = calibration_bytes::mainForm({camera, other(camera)});
  EXPECT_EQ(rewritten(given, readOf(given)), given);
}

}  // namespace
