#pragma once

#include <gtest/gtest.h>

#include "Tallowfen/src/board/RingTargetConfig.h"

/// What a record holds of the detection when nothing sets it, but for its ids.
inline void expectDetectorDefaults(const kestrune::RingTargetConfig& config) {
  EXPECT_EQ(config.detection_switch, 0);
  EXPECT_EQ(config.land_mark_switch, 0);
  for (const int mark : {config.land_mark1_x, config.land_mark1_y, config.land_mark2_x, config.land_mark2_y,
                         config.land_mark3_x, config.land_mark3_y, config.land_mark4_x, config.land_mark4_y}) {
    EXPECT_EQ(mark, 0);
  }
  EXPECT_EQ(config.id_method, 0);
  EXPECT_EQ(config.bin_method, 0);
  EXPECT_EQ(config.bin_thresh, 0.0F);
  EXPECT_EQ(config.bin_blocksize, 200);
  EXPECT_EQ(config.min_radius, 1.0F);
  EXPECT_EQ(config.max_radius, 50.0F);
  EXPECT_EQ(config.max_sigma, 1.0F);
  EXPECT_EQ(config.min_circularity, 0.8F);
}
