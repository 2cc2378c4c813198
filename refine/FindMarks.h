#pragma once

#include <vector>

#include "camera/PoseFit.h"
#include "refine/DotWork.h"
#include "refine/picture/GreyPicture.h"

namespace refine {

/// What the most marks of a picture look like.
struct MarkLook {
  double sign = 1.0;      ///< 1 where paper is brighter than ink, -1 where it is darker.
  double strength = 0.0;  ///< Median strength of the marks' edges.
  double reach = 0.0;     ///< How far around a place its mark may go, units of J.
  double radius = 0.0;    ///< Of the plain dots, units of J; 0 where there are too few to tell.
  double blur = 0.8;      ///< Of their edges.
};

/// What the dots' marks look like: fills `edges`, `radii`, `outline` and `blur` of each. Whether ink is darker or
/// brighter than paper is told by the most of them. Where a plain dot seems to be, its outline is assumed. Places
/// without a mark keep the state `kCovered`, marks without an outline `kUnclear`, marks at the border `kClipped`.
MarkLook findMarks(const GreyPicture& picture, std::vector<DotWork>& dots);

/// After the fits: the dots whose assumed outline has led to none, or to a mark of another size, are found from what is
/// seen there. Their numbers.
std::vector<std::size_t> findUnlikeMarks(const GreyPicture& picture, const MarkLook& look, std::vector<DotWork>& dots);

/// Distance of neighbouring places in units of J: the median over some of the places.
double spacingOf(const std::vector<DotWork>& dots);

}  // namespace refine
