#pragma once

#include <string>
#include <vector>

#include "calibrations/document/Node.h"
#include "calibrations/formats/SourcePair.h"

/// The parts of a camera that several formats share. Whatever ours can't hold is refused.
namespace calibrations {

/// fx, fy, cx, cy.
void setPinhole(polarline::Camera& camera, const std::vector<double>& values, const Node& node);

/// A 3 x 3 camera matrix without skew.
void setMatrix(polarline::Camera& camera, const Node& node);

/// Coefficients in the order of OpenCV: k1 k2 p1 p2 [k3 [k4 k5 k6 [s1..s4 [tx ty]]]], 0, 4, 5, 8, 12 or 14 of them.
void setBrown(SourceCamera& camera, const std::vector<double>& coefficients, const Node& node);

/// Four coefficients of the equidistant fisheye.
void setFisheye(SourceCamera& camera, const std::vector<double>& coefficients, const Node& node);

/// Width and height. A side of 0 stands for a size that is not known.
polarline::Size sizeOf(double width, double height, const Node& node);
polarline::Size sizeOf(const Node& node);

/// Refuses a lens model by its name.
[[noreturn]] void refuseModel(const Node& node, const std::string& model);

}  // namespace calibrations
