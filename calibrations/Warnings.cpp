#include "calibrations/Warnings.h"

namespace calibrations {

const warnings::Table& warningCodes() {
  static const warnings::Table codes = {
      {"no_image_size", "The calibration does not say how large the pictures are.",
       "Say it with --size WxH, so that the principal point and the distortion can be checked."},
      {"image_size_overridden", "The size that was said is not the one in the file.",
       "Make sure that the pictures are neither scaled nor cut against those of the calibration: nothing is "
       "converted."},
      {"baseline_overridden", "The baseline that was said is not the one in the file, in no unit of length.",
       "Leave --baseline out unless the file has lost its length; for another unit say --scale."},
      {"baseline_in_metres", "The cameras stand less than two board units apart, and no scale was said.",
       "If the file has metres and the board millimetres, say --scale 1000."},
      {"unlike_image_sizes", "The pictures of the two cameras are not of one size.",
       "Use pictures of one size, and calibrate with them: the library evaluates both cameras alike."},
      {"second_camera_on_the_left", "The second camera stands on the left of the first (TX above 0).",
       "Exchange the files, or say --swap, if the names of the cameras were mixed up."},
      {"vertical_pair", "The cameras stand above each other rather than side by side.",
       "Turn pictures and calibration by a quarter turn: row differences are meant for cameras side by side."},
      {"principal_point_outside", "The principal point lies outside the picture.",
       "Check the size of the pictures. If it is right, the calibration failed: calibrate again."},
      {"distortion_folds", "The distortion turns back inside the picture: two points of the scene share one pixel.",
       "Calibrate again with dots up to the corners, or with fewer coefficients."},
      {"suspect_coefficients", "The coefficients of a fisheye are too large for one.",
       "Find out which lens model they were made with: rational coefficients are often labelled as a fisheye."},
      {"rounded_rotation",
       "A printed rotation is less exact than its digits should make it; the nearest one was taken.",
       "Take the file as the calibration wrote it, with all its digits."},
  };
  return codes;
}

polarline::Warning warning(const std::string& code, const std::string& text) {
  return warnings::make(warningCodes(), code, text);
}

}  // namespace calibrations
