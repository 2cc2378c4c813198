#include "polar/results/RecordExport.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace {

PairFigures numberedFigures() {
  PairFigures figures;
  figures.tri_mean = 0.1F;
  figures.tri_min = 2;
  figures.tri_max = 3;
  figures.tri_rms = 4;
  figures.tri_dis = {1, 2, 3, 4, 5, 6, 7, 8};
  figures.dy_means = 5;
  figures.dy_min = 6;
  figures.dy_max = 7;
  figures.pol_dis = {8, 7, 6, 5, 4, 3, 2, 1};
  figures.id_dis = {0.25, 0.5};
  figures.dis_rms = 9;
  figures.nor_rms = 10;
  figures.zero_dis = 11;
  figures.detect_canvas = cv::Mat(2, 4, CV_8UC3, cv::Scalar(1, 2, 3));
  figures.PoseReport = {1, 2, 3, 4, 5, 6, 7, 8};
  figures.icp_x_rms = 12;
  figures.icp_y_rms = 13;
  figures.icp_z_rms = 14;
  figures.icp_nor_rms = 15;
  figures.frameValues = {16.5};
  figures.gt_rms = 0.3F;
  figures.space_rms = 0.123456789012345;
  PairPointRecord point;
  point.id = 7;
  point.left_x = 1.5F;
  point.left_y = 2.5F;
  point.right_x = 3.5F;
  point.right_y = 4.5F;
  point.x = 5.5F;
  point.y = 6.5F;
  point.z = 7.5F;
  point.right_err = 8.5F;
  point.dis_rms = 9.5F;
  point.nor_rms = 10.5F;
  PairPointRecord other;
  other.id = 8;
  figures.pairPoints = {point, other};
  auto distances = std::make_shared<PairDistances>(std::vector<std::int32_t>{7, 8});
  distances->add(0.5F);
  distances->add(-0.25F);
  figures.distances = distances;
  return figures;
}

std::vector<PolarResultRecord> exported(const PairFigures& figures) {
  std::vector<PairFigures> records(1);
  FillResultRecord(figures, records[0]);
  std::vector<PolarResultRecord> results(3);
  EXPECT_EQ(ExportResults(std::move(records), results), 0);
  return results;
}

TEST(RecordExport, EveryFigureReachesTheCaller) {
  const auto results = exported(numberedFigures());
  ASSERT_EQ(results.size(), 1U);
  const PolarResultRecord& r = results[0];
  EXPECT_EQ(r.tri_mean, static_cast<double>(0.1F));
  EXPECT_EQ(std::make_tuple(r.tri_min, r.tri_max, r.tri_rms), std::make_tuple(2.0, 3.0, 4.0));
  EXPECT_EQ(r.tri_dis, (std::array<double, 8>{1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(std::make_tuple(r.dy_means, r.dy_min, r.dy_max), std::make_tuple(5.0, 6.0, 7.0));
  EXPECT_EQ(r.pol_dis, (std::array<double, 8>{8, 7, 6, 5, 4, 3, 2, 1}));
  EXPECT_EQ(r.id_dis, (std::vector<double>{0.25, 0.5}));
  EXPECT_EQ(std::make_tuple(r.dis_rms, r.nor_rms, r.zero_dis), std::make_tuple(9.0, 10.0, 11.0));
  EXPECT_EQ(r.PoseReport, (std::array<double, 8>{1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(std::make_tuple(r.icp_x_rms, r.icp_y_rms, r.icp_z_rms, r.icp_nor_rms),
            std::make_tuple(12.0F, 13.0F, 14.0F, 15.0F));
  EXPECT_EQ(r.frameValues, std::vector<double>{16.5});
  EXPECT_EQ(r.gt_rms, static_cast<double>(0.3F));
  EXPECT_EQ(r.space_rms, 0.123456789012345);
  ASSERT_EQ(r.detect_canvas.size(), cv::Size(4, 2));
  EXPECT_EQ(r.detect_canvas.at<cv::Vec3b>(1, 3), cv::Vec3b(1, 2, 3));
}

TEST(RecordExport, PointsKeepWhatTheCallerGets) {
  const auto results = exported(numberedFigures());
  ASSERT_EQ(results[0].pairPoints.size(), 2U);
  const TriPointRecord& p = results[0].pairPoints[0];
  EXPECT_EQ(p.id, 7);
  EXPECT_EQ(std::make_tuple(p.left_x, p.left_y, p.right_x, p.right_y), std::make_tuple(1.5F, 2.5F, 3.5F, 4.5F));
  EXPECT_EQ(std::make_tuple(p.x, p.y, p.z), std::make_tuple(5.5F, 6.5F, 7.5F));
  EXPECT_EQ(p.dis_errors, (std::vector<std::pair<std::int32_t, float>>{{8, 0.5F}}));
  EXPECT_EQ(p.dis_errors.capacity(), 1U);
  EXPECT_EQ(results[0].pairPoints[1].dis_errors, (std::vector<std::pair<std::int32_t, float>>{{7, -0.25F}}));
  EXPECT_EQ(p.dis_rms, 9.5F);
}

TEST(RecordExport, CanvasIsTheRecordsOwn) {
  PairFigures figures = numberedFigures();
  PairFigures record;
  FillResultRecord(figures, record);
  figures.detect_canvas.setTo(cv::Scalar(9, 9, 9));
  EXPECT_EQ(record.detect_canvas.at<cv::Vec3b>(1, 3), cv::Vec3b(1, 2, 3));
}

TEST(RecordExport, RunKeepsTheFiguresForTheNextPair) {
  const PairFigures figures = numberedFigures();
  exported(figures);
  EXPECT_EQ(figures.distances->errorsOf(0).size(), 1U);
  EXPECT_EQ(figures.id_dis.size(), 2U);
}

}  // namespace
