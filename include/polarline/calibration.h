#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "polarline/api.h"
#include "polarline/warning.h"

/// Calibrations of other tools, to and from ours.
namespace polarline {

/// Columns and rows of a picture; 0 x 0: not known.
struct Size {
  int width = 0;
  int height = 0;
};

/// One camera. Pixel centres are at whole numbers. Brown (Brown 1966, with the denominator of later practice): with
/// r^2 = x^2 + y^2 of the ideal normalised point,
///   x' = x (1 + k0 r^2 + k1 r^4 + k2 r^6) / (1 + k3 r^2 + k4 r^4 + k5 r^6) + 2 p1 x y + p2 (r^2 + 2 x^2), y' alike.
/// Fisheye (Kannala and Brandt 2006): the distance from the axis is t (1 + k0 t^2 + k1 t^4 + k2 t^6 + k3 t^8), t the
/// angle.
struct Camera {
  Size size;
  double fx = 0.0;  ///< Pixels, as the other three.
  double fy = 0.0;
  double cx = 0.0;
  double cy = 0.0;
  std::array<double, 6> k{};  ///< K1 to K6.
  double p1 = 0.0;
  double p2 = 0.0;
};

/// A calibrated pair: X_right = R X_left + T with R = Rz(rz) Rx(rx) Ry(ry).
struct Calibration {
  int type = 0;  ///< 0 Brown with K1 to K3, 1 Brown with K1 to K6, 2 fisheye: the `type` of the polar configuration.
  Camera left;
  Camera right;
  double rx = 0.0;  ///< Radians, as the other two.
  double ry = 0.0;
  double rz = 0.0;
  double tx = 0.0;  ///< Board unit, as the other two.
  double ty = 0.0;
  double tz = 0.0;
};

/// What the files do not say, or say otherwise.
struct ImportOptions {
  /// opencv, ros, kalibr, basalt, mrcal, euroc or polarline (our own JSON); empty: told by the content.
  std::string format;
  /// Board units in a unit of the file: 1000 for a file in metres and a board in millimetres. Above 0.
  double scale = 1.0;
  /// brown or fisheye; empty: as the file says.
  std::string model;
  /// Of both cameras.
  std::optional<Size> size;
  /// Length of T in the board unit, for files that lost it. Not together with a scale.
  std::optional<double> baseline;
  /// Which cameras of a file of several are left and right, from 0; without it the first two.
  std::optional<std::pair<int, int>> pair;
  /// Exchanges left and right afterwards.
  bool swap = false;
};

/// What an import gives.
struct ImportedCalibration {
  Calibration calibration;
  std::string format;  ///< One of the names in `ImportOptions::format`.
  std::vector<Warning> warnings;
};

/// Reads the calibration of a pair that another tool wrote: one file, or one for each camera (the left one first) and,
/// with OpenCV, one for the pose. Throws `InputError` with the file and the key for what is no such calibration, and
/// for one that ours can't hold exactly: nothing is approximated.
POLARLINE_API ImportedCalibration importCalibration(const std::vector<std::string>& files,
                                                    const ImportOptions& options);

/// The names that `ImportOptions::format` takes.
POLARLINE_API std::vector<std::string> calibrationFormats();

/// Our JSON calibration. The library reads the same doubles from it; type and sizes are not in it.
POLARLINE_API std::string calibrationJson(const Calibration& calibration);

/// One OpenCV storage file in YAML: M1 D1 M2 D2 R T, the sizes where they are known and the name of the lens model.
POLARLINE_API std::string openCvText(const Calibration& calibration);

/// The result of an import as one JSON object, `schema` "polarline-import/1"
/// (docs/schema/polarline-import-1.schema.json): format, type, model, cameras, pose, baseline, warnings.
POLARLINE_API std::string importedCalibrationJson(const ImportedCalibration& imported);

/// The result of an import in lines for people: format, type, sizes, baseline, warnings.
POLARLINE_API std::string importedCalibrationText(const ImportedCalibration& imported);

/// "Brown, K1 to K3", "Brown, K1 to K6" or "fisheye".
POLARLINE_API std::string typeName(int type);

/// Length of T.
POLARLINE_API double baselineOf(const Calibration& calibration);

/// "640x480". Throws `InputError` for any other text and for sides outside 1 to 65535.
POLARLINE_API Size sizeOf(const std::string& text);

}  // namespace polarline
