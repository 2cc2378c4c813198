// A pair of which some dots are missing: every point is judged by the truth of its own id, not by that of its place.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <opencv2/imgcodecs.hpp>

#include "support/MemoryRun.h"

namespace {

double largest(const std::array<double, 8>& errors) { return std::abs(errors[7]); }

/// Board 9 columns wide. Where a place stood for an id, dots at the rows' ends would be taken for the next rows' first.
struct MissingDots : ::testing::Test {
  static constexpr std::int32_t kLeft = 0, kRight = 17, kLater = 54;
  MemoryRun pair{MemoryRun::twoPairs()};
  RunOutcome whole = pair.run(pair.set.polarText());

  MissingDots() {
    pair.hide(0, 0, kLeft);
    pair.hide(1, 0, kRight);
    pair.hide(1, 0, kLater);
  }
};

TEST_F(MissingDots, LeaveTheFiguresOfTheOthersAsTheyAre) {
  const RunOutcome run = pair.run(pair.set.polarText());
  ASSERT_EQ(run.records.size(), 2U);
  const PolarResultRecord& record = run.records[0];
  const PolarResultRecord& before = whole.records.at(0);
  std::vector<std::int32_t> ids;
  for (const TriPointRecord& point : record.pairPoints) ids.push_back(point.id);
  EXPECT_EQ(ids.size(), 60U);
  EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
  for (const std::int32_t missing : {kLeft, kRight, kLater})
    EXPECT_EQ(std::find(ids.begin(), ids.end(), missing), ids.end()) << missing;

  EXPECT_NEAR(record.dis_rms, before.dis_rms, 0.03);
  EXPECT_NEAR(record.nor_rms, before.nor_rms, 1e-3);
  EXPECT_NEAR(record.icp_nor_rms, before.icp_nor_rms, 0.03);
  EXPECT_NEAR(record.gt_rms, before.gt_rms, 0.01);
  EXPECT_NEAR(record.space_rms, before.space_rms, 0.03);
  EXPECT_NEAR(largest(record.tri_dis), largest(before.tri_dis), 0.05);
  EXPECT_NEAR(largest(record.pol_dis), largest(before.pol_dis), 0.1);
}

TEST_F(MissingDots, HaveNoPartInTheErrorsOfAPoint) {
  const RunOutcome run = pair.run(pair.set.polarText());
  ASSERT_EQ(run.records.size(), 2U);
  const std::vector<TriPointRecord>& points = run.records[0].pairPoints;
  const BoardGroundTruth& board = pair.calibration.boardPoints;
  for (const TriPointRecord& point : points) {
    ASSERT_EQ(point.dis_errors.size(), points.size() - 1);
    for (const auto& [id, error] : point.dis_errors) {
      const auto other = std::find_if(points.begin(), points.end(), [id = id](const auto& p) { return p.id == id; });
      ASSERT_NE(other, points.end());
      const double measured = std::hypot(point.x - other->x, point.y - other->y, point.z - other->z);
      const double truth =
          cv::norm(board.at(static_cast<std::size_t>(point.id)) - board.at(static_cast<std::size_t>(id)));
      ASSERT_NEAR(error, measured - truth, 1e-3) << point.id << " to " << id;
    }
  }
}

TEST(MissingDotsOfARectifiedPair, LeaveTheDistancesOfTheOthersAsTheyAre) {
  const RenderedSet set(small_scene::rectified());
  const scene::Board& board = set.scene().board;
  const scene::Camera& camera = set.scene().rig.left;
  RectifiedParams geometry;
  geometry.focal = camera.fx;
  geometry.baseline = set.scene().rig.right_from_left_translation.x;
  geometry.cx = camera.cx;
  geometry.cy = camera.cy;
  for (const cv::Point3f& point : set.calibration().boardPoints) geometry.boardPoints.emplace_back(point);

  MemoryRun spoilt(set);
  spoilt.hide(0, 0, 0);
  cv::imwrite(spoilt.folder.file("left.png"), spoilt.images[0][0]);
  cv::imwrite(spoilt.folder.file("right.png"), spoilt.images[1][0]);
  spoilt.folder.write("list.txt", "#L R\nleft.png right.png\n");
  // From a row's end to the next one's start, and across the board.
  const std::string groups =
      "[[8,9],[" + std::to_string(board.cols) + "," + std::to_string(board.cols * board.rows - 1) + "]]";
  std::vector<PolarResultRecord> records;
  const ConsoleCapture quiet;
  ASSERT_EQ(CalRecificationPrecision(set.polarWith({{"Cal_ID_DIS", groups}}).c_str(), set.file("target.ini").c_str(),
                                     geometry, spoilt.folder.file("list.txt").c_str(), &records),
            0);
  ASSERT_EQ(records.size(), 1U);
  ASSERT_EQ(records[0].id_dis.size(), 2U);
  EXPECT_NEAR(records[0].id_dis[0], 0.0, 1.0);
  EXPECT_NEAR(records[0].id_dis[1], 0.0, 1.0);
  EXPECT_NEAR(largest(records[0].pol_dis), 0.0, 1.0);
}

}  // namespace
