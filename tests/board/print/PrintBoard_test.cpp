#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "DetectedIds.h"
#include "RenderedPdf.h"
#include "SvgPicture.h"
#include "polarline/board.h"
#include "polarline/errors.h"

namespace {

using polarline::BoardDescription;
using polarline::BoardFormat;
using polarline::BoardPoint;

constexpr double kMillimetresPerInch = 25.4;

struct Case {
  const char* name;
  const char* board;
  int width;  ///< Of the picture, pixels.
};

std::string printed(const BoardDescription& board, BoardFormat format, double dpi = 300.0) {
  polarline::BoardPrint print;
  print.format = format;
  print.dpi = dpi;
  print.title = "O 0 o. (8) \xC2\xB0";  // Letters that look like dots and rings.
  return polarline::printBoard(board, print).bytes;
}

/// Where a mixed board of 25 x 23 dots may lose ids: at its small rings and right beside them the detector makes up
/// points that stand in the way, by luck.
bool mayBeLost(const BoardDescription& board, int id) {
  if (board.kind != polarline::BoardKind::kMixedRings) return false;
  for (const auto& [column, row] : {std::pair(8, 8), {16, 8}, {16, 14}, {8, 14}}) {
    if (std::abs(id % board.cols - column) + std::abs(id / board.cols - row) <= 1) return true;
  }
  return false;
}

/// Expects the ids that the board promises, each where the board says; `first` is the place of dot 0 on the sheet,
/// `pixels` those of a millimetre.
void expectEveryId(const BoardDescription& board, const std::map<int, cv::Point2d>& found, const cv::Point2d& first,
                   double pixels, const cv::Matx33d& view = cv::Matx33d::eye()) {
  const std::vector<BoardPoint> points = polarline::boardPoints(board);
  int lost = 0;
  for (int id = 0; id < static_cast<int>(points.size()); ++id) lost += mayBeLost(board, id) && !found.contains(id);
  EXPECT_EQ(static_cast<int>(found.size()) + lost, polarline::detectablePoints(board));
  for (const auto& [id, centre] : found) {
    ASSERT_TRUE(id >= 0 && id < static_cast<int>(points.size())) << id;
    const BoardPoint& point = points[static_cast<std::size_t>(id)];
    const cv::Point2d flat = SvgPicture::pixelOf(first + cv::Point2d(point.x, point.y), pixels);
    const cv::Vec3d seen = view * cv::Vec3d(flat.x, flat.y, 1.0);
    EXPECT_LT(cv::norm(cv::Point2d(seen[0] / seen[2], seen[1] / seen[2]) - centre), 0.5) << id;
  }
}

class PrintBoardOf : public testing::TestWithParam<Case> {
 protected:
  BoardDescription board_ = polarline::parseBoard(GetParam().board);
  std::string target_ = polarline::targetIni(board_);
};

TEST_P(PrintBoardOf, SvgIsDetectedWhole) {
  const SvgPicture picture(printed(board_, BoardFormat::kSvg));
  const double pixels = GetParam().width / picture.width;
  expectEveryId(board_, detectedIds(target_, picture.rendered(pixels)), picture.first(), pixels);
}

TEST(PrintBoard, SvgOfMixedRingsIsDetectedToTheLastId) {
  const BoardDescription board = polarline::parseBoard("rings-mixed:25x23:20");
  const SvgPicture picture(printed(board, BoardFormat::kSvg));
  EXPECT_EQ(detectedIds(polarline::targetIni(board), picture.rendered(640 / picture.width)).size(), 575U);
}

TEST_P(PrintBoardOf, SvgIsDetectedInASlantedView) {
  const SvgPicture picture(printed(board_, BoardFormat::kSvg));
  const double pixels = GetParam().width / picture.width;
  const cv::Mat flat = picture.rendered(pixels);
  // Turned by about 3 degrees, the far right end a tenth smaller.
  const double far = 0.1 / flat.cols;
  const cv::Matx33d view(0.97, -0.05, 0.04 * flat.cols, 0.05, 0.97, 0.01 * flat.rows, far, 0.3 * far, 1.0);
  cv::Mat slanted;
  cv::warpPerspective(flat, slanted, view, flat.size(), cv::INTER_LINEAR, cv::BORDER_CONSTANT, cv::Scalar(215));
  expectEveryId(board_, detectedIds(target_, slanted), picture.first(), pixels, view);
}

TEST_P(PrintBoardOf, PngIsDetectedWhole) {
  const SvgPicture picture(printed(board_, BoardFormat::kSvg));
  const double dpi = GetParam().width / picture.width * kMillimetresPerInch;
  const std::string png = printed(board_, BoardFormat::kPng, dpi);
  const cv::Mat grey = cv::imdecode(std::vector<uchar>(png.begin(), png.end()), cv::IMREAD_UNCHANGED);
  expectEveryId(board_, detectedIds(target_, grey), picture.first(), dpi / kMillimetresPerInch);
}

TEST_P(PrintBoardOf, PdfIsDetectedWhole) {
  const SvgPicture picture(printed(board_, BoardFormat::kSvg));
  const int dpi = static_cast<int>(GetParam().width / picture.width * kMillimetresPerInch);
  const cv::Mat page = renderedPdf(printed(board_, BoardFormat::kPdf), dpi);
  expectEveryId(board_, detectedIds(target_, page), picture.first(), dpi / kMillimetresPerInch);
}

INSTANTIATE_TEST_SUITE_P(
    , PrintBoardOf,
    testing::Values(Case{"SmallRings", "rings-small:35x37:20", 640}, Case{"SmallRingsOfA4", "rings-small:11x9:14", 600},
                    Case{"BigRings", "rings-big:35x37:20", 640}, Case{"MixedRings", "rings-mixed:25x23:20", 640},
                    Case{"BigDots", "dots:35x37:20", 1280}, Case{"BigDotsLowResolution", "dots:35x37:20", 640},
                    Case{"HighRows", "dots:25x21:20:step_y=24", 640},
                    Case{"BySearch", "dots:35x37:20:numbering=search", 640},
                    Case{"LandMarks", "dots:35x37:20:marks=5,20/12,20/12,14/6,14", 640},
                    Case{"LandMarksBySearch", "dots:35x37:20:marks=5,20/12,20/12,14/6,14:numbering=search", 640}),
    [](const auto& each) { return each.param.name; });

/// Pictures of 2048 columns and more are searched at half their size, so the largest boards are looked at there, too.
TEST(PrintBoard, IsDetectedInALargePicture) {
  for (const char* words : {"rings-small:71x73:17.5:inner=17x13:outter=33x25", "rings-big:35x37:20"}) {
    const BoardDescription board = polarline::parseBoard(words);
    const SvgPicture picture(printed(board, BoardFormat::kSvg));
    const double pixels = 2448.0 / picture.width;
    cv::Mat grey = picture.rendered(pixels);
    cv::copyMakeBorder(grey, grey, 0, grey.rows % 2, 0, grey.cols % 2, cv::BORDER_REPLICATE);
    expectEveryId(board, detectedIds(polarline::targetIni(board), grey), picture.first(), pixels);
  }
}

struct PaperCase {
  polarline::Paper paper;
  const char* name;
  double short_side, long_side;
};

class PrintBoardPaper : public testing::TestWithParam<PaperCase> {};

TEST_P(PrintBoardPaper, IsTheSheetOfEveryForm) {
  const BoardDescription board = polarline::parseBoard("dots:15x9:12");  // Wider than high: the sheets lie.
  polarline::BoardPrint print;
  print.paper = GetParam().paper;
  print.dpi = 50.8;  // Two pixels to the millimetre.
  const polarline::PrintedBoard svg = polarline::printBoard(board, print);
  EXPECT_EQ(svg.paper, GetParam().name);
  EXPECT_EQ(SvgPicture(svg.bytes).width, GetParam().long_side);
  EXPECT_EQ(SvgPicture(svg.bytes).height, GetParam().short_side);
  print.format = BoardFormat::kPdf;
  std::smatch box;
  const std::string pdf = polarline::printBoard(board, print).bytes;
  ASSERT_TRUE(std::regex_search(pdf, box, std::regex("/MediaBox \\[ 0 0 ([0-9.]+) ([0-9.]+) \\]")));
  EXPECT_NEAR(std::stod(box[1].str()), GetParam().long_side / 25.4 * 72.0, 0.01);
  EXPECT_NEAR(std::stod(box[2].str()), GetParam().short_side / 25.4 * 72.0, 0.01);
  print.format = BoardFormat::kPng;
  const std::string png = polarline::printBoard(board, print).bytes;
  const cv::Mat grey = cv::imdecode(std::vector<uchar>(png.begin(), png.end()), cv::IMREAD_UNCHANGED);
  EXPECT_NEAR(grey.cols, 2.0 * GetParam().long_side, 1.0);
  EXPECT_NEAR(grey.rows, 2.0 * GetParam().short_side, 1.0);
}

INSTANTIATE_TEST_SUITE_P(, PrintBoardPaper,
                         testing::Values(PaperCase{polarline::Paper::kA4, "A4", 210, 297},
                                         PaperCase{polarline::Paper::kA3, "A3", 297, 420},
                                         PaperCase{polarline::Paper::kA2, "A2", 420, 594},
                                         PaperCase{polarline::Paper::kA1, "A1", 594, 841}));

TEST(PrintBoard, RefusesWhatCanNotBeNumbered) {
  BoardDescription board = polarline::parseBoard("dots:35x37:20");
  board.rows = 2;
  EXPECT_THROW(polarline::printBoard(board, {}), polarline::InputError);
}

}  // namespace
