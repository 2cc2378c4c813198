#include "board/print/Pdf.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>
#include <regex>
#include <string>

#include "RenderedPdf.h"

namespace {

/// A ring of ink with paper in it, on A4.
boards::Sheet ringSheet() {
  boards::Sheet sheet;
  sheet.title = "Ring";
  sheet.width = 210.0;
  sheet.height = 297.0;
  sheet.discs = {{50.0, 80.0, 20.0, true}, {50.0, 80.0, 10.0, false}};
  sheet.bars = {{100.0, 200.0, 100.0, 2.0}};
  return sheet;
}

TEST(Pdf, HasThePapersSizeInPoints) {
  const std::string pdf = boards::pdfOf(ringSheet());
  EXPECT_TRUE(pdf.starts_with("%PDF-"));
  std::smatch box;
  ASSERT_TRUE(std::regex_search(pdf, box, std::regex("/MediaBox \\[ 0 0 ([0-9.]+) ([0-9.]+) \\]")));
  EXPECT_NEAR(std::stod(box[1].str()), 210.0 / 25.4 * 72.0, 0.01);
  EXPECT_NEAR(std::stod(box[2].str()), 297.0 / 25.4 * 72.0, 0.01);
}

TEST(Pdf, ShowsItsContentInTrueSize) {
  const cv::Mat page = renderedPdf(boards::pdfOf(ringSheet()), 254);  // Ten pixels to the millimetre.
  ASSERT_NEAR(page.cols, 2100, 1);
  ASSERT_NEAR(page.rows, 2970, 1);
  EXPECT_EQ(page.at<uchar>(800, 500), 255);
  // The ink of the ring and of the bar, a hundredth of a square millimetre a pixel.
  const cv::Mat ink = 255 - page;
  const double ring = cv::sum(ink.rowRange(0, 1500))[0] / 255.0 / 100.0;
  const double bar = cv::sum(ink.rowRange(1500, page.rows))[0] / 255.0 / 100.0;
  EXPECT_NEAR(ring, CV_PI * (400.0 - 100.0), 1.0);
  EXPECT_NEAR(bar, 200.0, 0.2);
  const cv::Moments moments = cv::moments(ink.rowRange(0, 1500));
  EXPECT_NEAR(moments.m10 / moments.m00, 499.5, 0.1);
  EXPECT_NEAR(moments.m01 / moments.m00, 799.5, 0.1);
}

TEST(Pdf, IsTheSameEveryTime) { EXPECT_EQ(boards::pdfOf(ringSheet()), boards::pdfOf(ringSheet())); }

TEST(Pdf, BearsNoDate) { EXPECT_EQ(boards::pdfOf(ringSheet()).find("CreationDate"), std::string::npos); }

}  // namespace
