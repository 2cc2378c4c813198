#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

/// Whether the fields, named in their promised order, stand so in memory. Callers are built against it.
template <typename... Fields>
bool standInThisOrder(const Fields&... fields) {
  const std::vector<const void*> places = {&fields...};
  return std::is_sorted(places.begin(), places.end(), std::less<>());
}

TEST(PublicRecords, ResultsOfAPair) {
  const PolarResultRecord r;
  EXPECT_TRUE(standInThisOrder(r.tri_mean, r.tri_min, r.tri_max, r.tri_rms, r.tri_dis, r.dy_means, r.dy_min, r.dy_max,
                               r.pol_dis, r.id_dis, r.dis_rms, r.nor_rms, r.detect_canvas, r.zero_dis, r.PoseReport,
                               r.pairPoints, r.icp_x_rms, r.icp_y_rms, r.icp_z_rms, r.icp_nor_rms, r.frameValues,
                               r.gt_rms, r.space_rms));
  const TriPointRecord p;
  EXPECT_TRUE(standInThisOrder(p.id, p.left_x, p.left_y, p.right_x, p.right_y, p.x, p.y, p.z, p.dis_errors, p.dis_rms));
}

TEST(PublicRecords, Calibrations) {
  const ExportedCalibParams c;
  EXPECT_TRUE(standInThisOrder(c.left.height, c.left.width, c.left.intrinsics, c.left.poly_nx, c.left.poly_ny,
                               c.left.poly_x, c.left.poly_y, c.right, c.extrinsics, c.boardPoints));
  const RectifiedParams g;
  EXPECT_TRUE(standInThisOrder(g.focal, g.baseline, g.cx, g.cy, g.disparity_offset, g.boardPoints));
  const MultiCalibration m;
  EXPECT_TRUE(standInThisOrder(m.last_byte, m.fourth_byte, m.camera_names, m.value, m.model_names, m.model_code,
                               m.entries, m.long_text, m.n, m.format_byte, m.short_text));
  const MultiCalibrationEntry e;
  EXPECT_TRUE(standInThisOrder(e.value, e.height, e.width, e.parameters, e.table_block, e.extrinsics, e.camera_name));
}

}  // namespace
