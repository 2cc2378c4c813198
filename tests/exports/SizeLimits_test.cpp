// Boards and images of extreme sizes and of every pixel format: each call ends in a status or in an exception of the
// standard hierarchy.
#include <PolarLinePrecision.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <opencv2/imgcodecs.hpp>
#include <optional>
#include <set>

#include "support/ConsoleCapture.h"
#include "support/OpenFiles.h"
#include "support/TempFolder.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Render.h"
#include "tools/scene/TargetText.h"

namespace {

using ::testing::HasSubstr;

/// What a call came to: its status, or the text of its exception.
struct Answer {
  std::optional<std::int32_t> status;
  std::string exception;

  /// One of the statuses that a run on images may end with, or an exception that says why.
  bool isLawful() const {
    using namespace polar_status;
    static const std::set<std::int32_t> kOfRuns = {kSuccess,        kNoResults,  kTargetConfig,
                                                   kTooFewDetected, kImages,     kTooFewShared,
                                                   kPointMissing,   kPolyTables, kOutlier};
    return status ? kOfRuns.contains(*status) : !exception.empty();
  }
};

/// Anything but a status or a `std::exception` ends the test program.
Answer answerOf(const std::function<std::int32_t()>& call) {
  try {
    return {call(), ""};
  } catch (const std::exception& error) {
    return {std::nullopt, error.what()};
  }
}

struct Sizes : ::testing::Test {
  ConsoleCapture console;
  ExportedCalibParams calibration;
  std::vector<PolarResultRecord> results;

  Sizes() {
    calibration.left.intrinsics = {300, 300, 160, 128};
    calibration.right.intrinsics = {301, 301, 161, 127};
    calibration.extrinsics = {0.001, 0.002, 0.003, -60, 0.1, 0.2};
  }

  Answer run(const std::string& polar, const std::string& target, const ImagePairList& images) {
    const std::size_t open_before = openFiles();
    const Answer answer = answerOf([&] {
      return CalPolarLinePrecisionOutMat(polar.c_str(), target.c_str(), calibration, images, &results, nullptr,
                                         nullptr);
    });
    EXPECT_EQ(openFiles(), open_before);
    return answer;
  }
  Answer run(const std::string& polar, const std::string& target, const cv::Mat& left, const cv::Mat& right) {
    return run(polar, target, ImagePairList{{left}, {right}});
  }
};

std::string boardText(const std::string& type, const std::string& rows, const std::string& cols) {
  return "board_type: " + type + "\nrows: " + rows + "\ncols: " + cols +
         "\ninner_width: 5\ninner_height: 3\noutter_width: 7\noutter_height: 5\nstep: 10\n";
}

/// A ring board of 15 x 17 dots.
constexpr const char* kTarget =
    "board_type: 2\nrows: 15\ncols: 17\ninner_width: 11\ninner_height: 9\noutter_width: 15\noutter_height: 13\nstep: "
    "10\n";

const cv::Mat& grey() {
  static const cv::Mat image(60, 60, CV_8UC1, cv::Scalar(90));
  return image;
}

struct SizeLimitsBoards : Sizes {};

// The largest number of dots whose ids fit their 16 bits.
TEST_F(SizeLimitsBoards, Of65535DotsAreLoadedFromAListAndLookedFor) {
  const TempFolder folder;
  std::string list;
  for (int row = 0; row < 255; ++row) {
    for (int column = 0; column < 257; ++column) list += std::to_string(column) + " " + std::to_string(row) + " 0.5\n";
  }
  calibration.boardPoints.clear();
  ReadBoardGTFromTxt(folder.write("board.txt", list), &calibration.boardPoints);
  ASSERT_EQ(calibration.boardPoints.size(), 65535U);
  EXPECT_EQ(calibration.boardPoints.back(), cv::Point3f(256.0F, 254.0F, 0.5F));
  for (const char* type : {"1", "2", "3"}) {
    const Answer answer =
        run("triangulate_residual_switch: 1\ndiscalsave: 1", boardText(type, "255", "257"), grey(), grey());
    EXPECT_EQ(answer.status, polar_status::kTooFewDetected) << answer.exception;
  }
  EXPECT_THAT(console.out(), HasSubstr("Calibration board GT mode\ncheck"));
  EXPECT_THAT(console.out(), HasSubstr("checke_pointend:256 254 0.5\n"));
}

struct BoardSize {
  const char* name;
  const char* rows;
  const char* cols;
};

class SizeLimitsBoardSizes : public SizeLimitsBoards, public ::testing::WithParamInterface<BoardSize> {};

constexpr const char* kMeasured = "triangulate_residual_switch: 1\ndiscalsave: 1\nx_y: 0";

TEST_P(SizeLimitsBoardSizes, FindNothingInAGreyImage) {
  for (const char* type : {"1", "2", "3"}) {
    const Answer answer = run(kMeasured, boardText(type, GetParam().rows, GetParam().cols), grey(), grey());
    EXPECT_EQ(answer.status, polar_status::kTooFewDetected) << answer.exception;
  }
}

/// The left image of a preset's first pair, and its board's description.
struct RealBoard {
  cv::Mat image;
  std::string target;

  explicit RealBoard(const std::string& preset) {
    const scene::Scene scene = *scene::makePreset(preset, {.pairs = 1, .seed = {}, .read_noise = {}});
    image = scene::renderPair(scene, 0).left;
    target = scene::targetIni(scene);
  }
};

// Sizes that the description gives are not those of the board that is seen.
TEST_P(SizeLimitsBoardSizes, EndTheMeasurementOfAnotherBoardLawfully) {
  static const RealBoard rings("ring_320");
  static const RealBoard big_dots("big_320");
  const std::string sizes = std::string("\nrows: ") + GetParam().rows + "\ncols: " + GetParam().cols;
  for (const auto& [board, method] :
       {std::pair(&rings, ""), std::pair(&big_dots, ""), std::pair(&big_dots, "\nid_method: 1")}) {
    const Answer answer = run(kMeasured, board->target + sizes + method, board->image, board->image);
    EXPECT_TRUE(answer.isLawful()) << answer.status.value_or(0);
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, SizeLimitsBoardSizes,
                         ::testing::Values(BoardSize{"None", "0", "0"}, BoardSize{"NoRows", "0", "17"},
                                           BoardSize{"NoColumns", "15", "0"}, BoardSize{"OneDot", "1", "1"},
                                           BoardSize{"OneRow", "1", "65535"}, BoardSize{"OneColumn", "65535", "1"},
                                           BoardSize{"MinusOneRow", "-1", "1"}, BoardSize{"MinusOneColumn", "1", "-1"},
                                           BoardSize{"NoRowsAndTheLargestInteger", "0", "2147483647"},
                                           BoardSize{"WrappedToNone", "65536", "17"},
                                           BoardSize{"NoNumbers", "many", "?"}),
                         [](const auto& test) { return std::string(test.param.name); });

// Sizes keep their low 16 bits: what is beyond them, or below zero, is a board of up to 65535 rows or columns.
TEST_F(SizeLimitsBoards, OfTooManyDotsAreRefusedByCountAndLimit) {
  for (const auto& [rows, cols] : std::vector<std::pair<const char*, const char*>>{
           {"2147483647", "2147483647"}, {"-1", "-1"}, {"99999999999", "257"}, {"-1", "257"}, {"20000", "20000"}}) {
    for (const char* type : {"1", "2", "3"}) {
      const Answer answer = run(kMeasured, boardText(type, rows, cols), grey(), grey());
      EXPECT_FALSE(answer.status) << rows;
      EXPECT_THAT(answer.exception, HasSubstr("the most is 16777216")) << rows;
    }
  }
}

/// A way of a pair through the run, as lines of the configuration.
struct Case {
  const char* name;
  const char* lines;
};

constexpr const char* kEverything =
    "evaluation: 1\ntriangulate_residual_switch: 1\ntriangulate_dis_switch: 1\ndiscalswitch: 1\ndy_bias_switch: 1\n"
    "tri_bias_savepng_swithch: 1\ntir_bias_savecsv_swithch: 1\ndy_bias_savecsv_swithch: 1\ndy_bias_savepng_swithch: "
    "1\nallpoints_calc_switch: 1\nallpointssavecsv_swithch: 1\nfoursixmethod_swithch: 1\noqc_switch: 1\npattern_rows: "
    "15\npattern_cols: 17\npattern_step: 10\nPolPoint1_ID: 36\nPolPoint2_ID: 48\nPolPoint3_ID: 206\nPolPoint4_ID: "
    "218\nTriPoint1_ID: 36\nTriPoint2_ID: 48\nTriPoint3_ID: 206\nTriPoint4_ID: 218\nTriPoint1_GT: [0,0,0]\n"
    "TriPoint2_GT: [0,0,0]\nTriPoint3_GT: [0,0,0]\nTriPoint4_GT: [0,0,0]\nPolPoint1_GT: [0,0,0]\nPolPoint2_GT: "
    "[0,0,0]\nPolPoint3_GT: [0,0,0]\nPolPoint4_GT: [0,0,0]\nCal_ID_DIS: [[36,48],[206,218]]\nf_scale: 1\n";

// A pair that fails its triangulation goes no further, so the later evaluations have cases of their own.
constexpr const char* kMeasuredFirst = "type: 1\ndiscalsave: 1\n";
constexpr const char* kRectifiedFirst = "type: 1\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\n";

const std::vector<Case> kFurtherCases = {
    {"first failure gives the pair up", "type: 0\n"},
    {"rectified, turned, scaled",
     "type: 0\nx_y: 1\nf_scale: 1.2\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\n"},
    {"fisheye", "type: 2\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\n"},
    {"polynomial", "type: 3\n"},
    {"polynomial, rectified", "type: 3\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\n"},
    {"point cloud only", "type: 1\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\ndy_bias_switch: 0\n"},
    {"board check only",
     "type: 1\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\ndy_bias_switch: 0\nfoursixmethod_swithch: "
     "0\n"},
    {"detection only", "type: 1\nevalu_model: 1\n"},
    {"detection only, rectified",
     "type: 1\nevalu_model: 1\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\n"},
    {"compensated", "type: 1\neccentricity: 1\n"},
    {"cropped", "type: 1\ncrop: 1\ncropped_cols: 55\ncropped_rows: 55\n"},
    {"frames",
     "type: 1\nframe_work: 1\nFrame_ID: [1,2]\nFrame_IRL: [[10,10],[20,20]]\nFrame_IRR: [[10,10],[20,20]]\nFrame_3D: "
     "[[0,0,0],[1,0,0]]\nFrame_ID_DIS: [[1,2]]\n"}};

/// No status: an exception.
constexpr std::optional<std::int32_t> kRaises = std::nullopt;
constexpr std::optional<std::int32_t> kNotFound = polar_status::kTooFewDetected;
constexpr std::optional<std::int32_t> kGivenUp = polar_status::kNoResults;
constexpr std::optional<std::int32_t> kNoImage = polar_status::kImages;

/// A pair of images, and what comes of its measurement and of its rectification, where each is the first step.
struct PairOfImages {
  const char* name;
  std::function<cv::Mat()> left;
  std::function<cv::Mat()> right;
  std::optional<std::int32_t> measured;
  std::optional<std::int32_t> rectified;
};

/// Random pixels, the same at each call.
cv::Mat noise(int rows, int cols, int type) {
  cv::Mat image(rows, cols, type);
  cv::RNG random(7);
  random.fill(image, cv::RNG::UNIFORM, 0, CV_MAT_DEPTH(type) == CV_8S ? 127 : 255);
  return image;
}

std::function<cv::Mat()> plain(int rows, int cols) {
  return [=] { return cv::Mat(rows, cols, CV_8UC1, cv::Scalar(90)); };
}

std::function<cv::Mat()> random(int rows, int cols) {
  return [=] { return noise(rows, cols, CV_8UC1); };
}

std::function<cv::Mat()> ofType(int type) {
  return [=] { return noise(60, 60, type); };
}

cv::Mat nothing() { return {}; }

cv::Mat ofThreeDimensions() {
  const int sizes[] = {4, 5, 6};
  return cv::Mat(3, sizes, CV_8UC1, cv::Scalar(90));
}

class SizeLimitsImages : public Sizes, public ::testing::WithParamInterface<PairOfImages> {
 protected:
  SizeLimitsImages() {
    for (ExportedCameraCalib* const camera : {&calibration.left, &calibration.right}) {
      camera->width = camera->height = 60;
      camera->poly_nx = camera->poly_ny = 2;
    }
  }
};

TEST_P(SizeLimitsImages, EndEveryRunLawfully) {
  const cv::Mat left = GetParam().left();
  const cv::Mat right = GetParam().right();
  const auto answerOn = [&](const char* settings) {
    return run(std::string(kEverything) + settings, kTarget, left, right);
  };
  EXPECT_EQ(answerOn(kMeasuredFirst).status, GetParam().measured);
  EXPECT_EQ(answerOn(kRectifiedFirst).status, GetParam().rectified);
  for (const Case& one : kFurtherCases) {
    const Answer answer = answerOn(one.lines);
    EXPECT_TRUE(answer.isLawful()) << one.name << " " << answer.status.value_or(0);
    if (left.empty() || right.empty()) {
      EXPECT_EQ(answer.status, polar_status::kImages) << one.name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, SizeLimitsImages,
    ::testing::Values(PairOfImages{"OnePixel", plain(1, 1), plain(1, 1), kRaises, kRaises},
                      PairOfImages{"VeryWide", random(10, 20000), random(10, 20000), kRaises, kRaises},
                      PairOfImages{"VeryHigh", random(20000, 10), random(20000, 10), kRaises, kRaises},
                      PairOfImages{"OneRow", plain(1, 20000), plain(1, 20000), kRaises, kRaises},
                      PairOfImages{"OneColumn", plain(20000, 1), plain(20000, 1), kRaises, kRaises},
                      PairOfImages{"WiderThanAWarpReaches", plain(2, 40000), plain(2, 40000), kRaises, kRaises},
                      PairOfImages{"JustLargeEnough", random(50, 50), random(50, 50), kNotFound, kGivenUp},
                      PairOfImages{"Empty", nothing, nothing, kNoImage, kNoImage},
                      PairOfImages{"EmptyRight", ofType(CV_8UC1), nothing, kNoImage, kNoImage},
                      PairOfImages{"NoColumns", plain(20, 0), plain(20, 0), kNoImage, kNoImage},
                      PairOfImages{"NoRows", plain(0, 20), plain(0, 20), kNoImage, kNoImage},
                      PairOfImages{"ThreeDimensions", ofThreeDimensions, ofThreeDimensions, kRaises, kRaises},
                      PairOfImages{"TwoChannels", ofType(CV_8UC2), ofType(CV_8UC2), kNotFound, kRaises},
                      PairOfImages{"ThreeChannels", ofType(CV_8UC3), ofType(CV_8UC3), kNotFound, kGivenUp},
                      PairOfImages{"FourChannels", ofType(CV_8UC4), ofType(CV_8UC4), kNotFound, kGivenUp},
                      PairOfImages{"FiveChannels", ofType(CV_8UC(5)), ofType(CV_8UC(5)), kNotFound, kRaises},
                      PairOfImages{"SixteenBits", ofType(CV_16UC1), ofType(CV_16UC1), kNotFound, kGivenUp},
                      PairOfImages{"SixteenBitsThreeChannels", ofType(CV_16UC3), ofType(CV_16UC3), kNotFound, kRaises},
                      PairOfImages{"SignedBytes", ofType(CV_8SC1), ofType(CV_8SC1), kNotFound, kRaises},
                      PairOfImages{"SignedIntegers", ofType(CV_32SC1), ofType(CV_32SC1), kNotFound, kRaises},
                      PairOfImages{"Floats", ofType(CV_32FC1), ofType(CV_32FC1), kNotFound, kRaises},
                      PairOfImages{"FloatsThreeChannels", ofType(CV_32FC3), ofType(CV_32FC3), kNotFound, kRaises},
                      PairOfImages{"Doubles", ofType(CV_64FC1), ofType(CV_64FC1), kNotFound, kRaises},
                      PairOfImages{"RightSmaller", random(60, 60), random(55, 50), kRaises, kGivenUp},
                      PairOfImages{"RightLarger", random(60, 60), random(65, 70), kRaises, kGivenUp},
                      PairOfImages{"RightOfAnotherDepth", ofType(CV_8UC1), ofType(CV_16UC1), kRaises, kGivenUp},
                      PairOfImages{"RightOfOtherChannels", ofType(CV_8UC1), ofType(CV_8UC3), kRaises, kGivenUp},
                      PairOfImages{"LeftOfOtherChannels", ofType(CV_8UC4), ofType(CV_8UC1), kRaises, kGivenUp}),
    [](const auto& test) { return std::string(test.param.name); });

/// Images of every format that a file can hold, through the run on rectified images: what comes of the row differences
/// and, without these, of the point cloud.
class SizeLimitsRectifiedImages : public Sizes, public ::testing::WithParamInterface<PairOfImages> {};

TEST_P(SizeLimitsRectifiedImages, EndEveryRunLawfully) {
  const TempFolder folder;
  ASSERT_TRUE(cv::imwrite(folder.file("left.tiff"), GetParam().left()));
  ASSERT_TRUE(cv::imwrite(folder.file("right.tiff"), GetParam().right()));
  const std::string list = folder.write("list.txt", "#L R\nleft.tiff right.tiff\n");
  const RectifiedParams geometry{
      .focal = 300, .baseline = 60, .cx = 160, .cy = 128, .disparity_offset = 0, .boardPoints = {}};
  const auto answerOn = [&](const char* settings) {
    const std::string polar = std::string(kEverything) + settings;
    return answerOf([&] { return CalRecificationPrecision(polar.c_str(), kTarget, geometry, list.c_str(), &results); });
  };
  const std::size_t open_before = openFiles();
  EXPECT_EQ(answerOn("").status, GetParam().measured);
  EXPECT_EQ(answerOn("dy_bias_switch: 0").status, GetParam().rectified);
  EXPECT_TRUE(answerOn("evalu_model: 1").isLawful());
  EXPECT_TRUE(answerOn("crop: 1\ncropped_cols: 55\ncropped_rows: 55").isLawful());
  EXPECT_EQ(openFiles(), open_before);
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, SizeLimitsRectifiedImages,
    ::testing::Values(PairOfImages{"OnePixel", plain(1, 1), plain(1, 1), kRaises, kRaises},
                      PairOfImages{"VeryWide", random(10, 20000), random(10, 20000), kRaises, kRaises},
                      PairOfImages{"VeryHigh", random(20000, 10), random(20000, 10), kRaises, kRaises},
                      PairOfImages{"OneRow", plain(1, 20000), plain(1, 20000), kRaises, kRaises},
                      PairOfImages{"OneColumn", plain(20000, 1), plain(20000, 1), kRaises, kRaises},
                      PairOfImages{"JustLargeEnough", random(50, 50), random(50, 50), kGivenUp, kGivenUp},
                      PairOfImages{"ThreeChannels", ofType(CV_8UC3), ofType(CV_8UC3), kGivenUp, kGivenUp},
                      PairOfImages{"FourChannels", ofType(CV_8UC4), ofType(CV_8UC4), kGivenUp, kGivenUp},
                      PairOfImages{"SixteenBits", ofType(CV_16UC1), ofType(CV_16UC1), kGivenUp, kGivenUp},
                      PairOfImages{"SixteenBitsThreeChannels", ofType(CV_16UC3), ofType(CV_16UC3), kGivenUp, kGivenUp},
                      PairOfImages{"Floats", ofType(CV_32FC1), ofType(CV_32FC1), kGivenUp, kGivenUp},
                      PairOfImages{"RightSmaller", random(60, 60), random(55, 50), kRaises, kRaises},
                      PairOfImages{"RightOfAnotherDepth", ofType(CV_8UC1), ofType(CV_16UC1), kRaises, kRaises}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
