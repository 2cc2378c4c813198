#pragma once

#include "polarline/check.h"
#include "support/CopiedSet.h"
#include "support/DocumentCheck.h"

/// What the tests of whole checks share.
namespace polarline {

inline void documentIsValid(const Check& check) { DocumentCheck::ofCheck().parsed(toJson(check)); }

/// Row differences, cloud, distances and all that a raw pair can yield; a failed triangulation gives its pair up.
inline void switchAllOn(const CopiedSet& set) {
  set.append("polar.txt",
             "\ndiscalsave: 0\ntriangulate_residual_switch: 1\ntriangulate_dis_switch: 1\ndiscalswitch: 1\n"
             "dy_bias_switch: 1\nfoursixmethod_swithch: 1\nallpoints_calc_switch: 1\nspaceRms_switch: 1\n");
}

}  // namespace polarline
