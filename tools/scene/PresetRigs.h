#pragma once

#include "tools/scene/StereoRig.h"

/// The stereo pairs of the presets. Every number is one that single precision holds, so the JSON and the binary file
/// tell the same.
namespace scene {

/// What a rig is made for.
struct RigSize {
  int width = 640;
  int height = 512;
  double baseline = 60.0;  ///< Millimetres, the right camera's distance.
};

/// Two slightly different cameras with eight-coefficient Brown lenses, focal length 1.2 widths.
StereoRig brownRig(const RigSize& size);

/// Two fisheyes, focal length 0.625 widths: some 100 degrees across the diagonal.
StereoRig fisheyeRig(const RigSize& size);

/// Strong barrel lenses of 0.89 widths, to which 6 x 4 polynomial cells are still to be fitted.
StereoRig polyLenses(const RigSize& size);

/// The same with the cells fitted.
StereoRig polyRig(const RigSize& size);

/// Two equal pinholes, the right one moved along x only: images that need no rectification.
StereoRig rectifiedRig(const RigSize& size);

}  // namespace scene
