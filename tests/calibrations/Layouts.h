#pragma once

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <opencv2/calib3d.hpp>
#include <string>
#include <vector>

#include "Rig.h"

/// Rigs in the layouts of other tools, all digits written.
namespace layouts {

using Texts = std::vector<std::string>;

inline std::string list(const std::vector<double>& values) { return fmt::format("[{}]", fmt::join(values, ", ")); }

template <int ROWS, int COLS>
std::vector<double> values(const cv::Matx<double, ROWS, COLS>& matrix) {
  return {matrix.val, matrix.val + ROWS * COLS};
}

inline std::string openCvMatrix(const std::string& name, int rows, int cols, const std::vector<double>& data) {
  return fmt::format("{}: !!opencv-matrix\n   rows: {}\n   cols: {}\n   dt: d\n   data: {}\n", name, rows, cols,
                     list(data));
}

inline std::string openCvIntrinsics(const Rig& rig, const char* matrix = "M", const char* lens = "D") {
  const auto n_left = static_cast<int>(rig.D_left.size());
  const auto n_right = static_cast<int>(rig.D_right.size());
  return "%YAML:1.0\n---\n" + openCvMatrix(fmt::format("{}1", matrix), 3, 3, values(rig.K_left)) +
         openCvMatrix(fmt::format("{}1", lens), 1, n_left, rig.D_left) +
         openCvMatrix(fmt::format("{}2", matrix), 3, 3, values(rig.K_right)) +
         openCvMatrix(fmt::format("{}2", lens), 1, n_right, rig.D_right);
}

inline std::string openCvExtrinsics(const Rig& rig) {
  return "%YAML:1.0\n---\n" + openCvMatrix("R", 3, 3, values(rig.R())) + openCvMatrix("T", 3, 1, values(rig.T));
}

inline Texts openCv(const Rig& rig) { return {openCvIntrinsics(rig), openCvExtrinsics(rig)}; }

/// The frames of the rectified cameras: x towards the right camera, whatever turn about it.
inline cv::Matx33d rectifiedFromRight(const Rig& rig) {
  const cv::Vec3d x = cv::normalize(-rig.T);
  const cv::Vec3d y = cv::normalize(cv::Vec3d(0.02, 0, 1).cross(x));
  const cv::Vec3d z = x.cross(y);
  return {x[0], x[1], x[2], y[0], y[1], y[2], z[0], z[1], z[2]};
}

inline std::string rosCamera(const Rig& rig, const cv::Matx33d& K, const std::vector<double>& D, const cv::Matx33d& R,
                             double tx, const char* model) {
  const auto matrix = [](const char* name, int rows, int cols, const std::vector<double>& data) {
    return fmt::format("{}:\n  rows: {}\n  cols: {}\n  data: {}\n", name, rows, cols, list(data));
  };
  return fmt::format("image_width: {}\nimage_height: {}\ncamera_name: one\n", rig.width, rig.height) +
         matrix("camera_matrix", 3, 3, values(K)) + fmt::format("distortion_model: {}\n", model) +
         matrix("distortion_coefficients", 1, static_cast<int>(D.size()), D) +
         matrix("rectification_matrix", 3, 3, values(R)) +
         matrix("projection_matrix", 3, 4, {400, 0, 300, tx, 0, 400, 200, 0, 0, 0, 1, 0});
}

inline Texts ros(const Rig& rig, const char* model) {
  const cv::Matx33d R_right = rectifiedFromRight(rig);
  return {rosCamera(rig, rig.K_left, rig.D_left, R_right * rig.R(), 0.0, model),
          rosCamera(rig, rig.K_right, rig.D_right, R_right, -400 * cv::norm(rig.T), model)};
}

inline cv::Matx44d pose(const cv::Matx33d& R, const cv::Vec3d& t) {
  return {R(0, 0), R(0, 1), R(0, 2), t[0], R(1, 0), R(1, 1), R(1, 2), t[1],
          R(2, 0), R(2, 1), R(2, 2), t[2], 0,       0,       0,       1};
}

inline cv::Matx44d rightFromLeft(const Rig& rig) { return pose(rig.R(), rig.T); }

/// Some camera from some body.
inline cv::Matx44d leftFromBody() {
  cv::Matx33d R;
  cv::Rodrigues(cv::Vec3d(0.6, -1.1, 0.4), R);
  return pose(R, {0.3, -0.2, 0.7});
}

inline cv::Matx44d inverse(const cv::Matx44d& m) {
  const cv::Matx33d R = m.get_minor<3, 3>(0, 0).t();
  return pose(R, -(R * cv::Vec3d(m(0, 3), m(1, 3), m(2, 3))));
}

inline std::string rows(const char* name, const cv::Matx44d& m) {
  std::string text = fmt::format("  {}:\n", name);
  for (int row = 0; row < 4; ++row) {
    text += fmt::format("  - [{}, {}, {}, {}]\n", m(row, 0), m(row, 1), m(row, 2), m(row, 3));
  }
  return text;
}

inline std::vector<double> pinhole(const cv::Matx33d& K) { return {K(0, 0), K(1, 1), K(0, 2), K(1, 2)}; }

inline std::string kalibrCamera(const Rig& rig, int number, const std::string& pose) {
  const cv::Matx33d& K = number == 0 ? rig.K_left : rig.K_right;
  return fmt::format(
      "cam{}:\n{}  cam_overlaps: [{}]\n  camera_model: pinhole\n  distortion_coeffs: {}\n  distortion_model: {}\n"
      "  intrinsics: {}\n  resolution: [{}, {}]\n  rostopic: /cam{}/image_raw\n",
      number, pose, 1 - number, list(number == 0 ? rig.D_left : rig.D_right), rig.isFisheye ? "equidistant" : "radtan",
      list(pinhole(K)), rig.width, rig.height, number);
}

inline Texts kalibrChain(const Rig& rig) {
  return {kalibrCamera(rig, 0, "") + kalibrCamera(rig, 1, rows("T_cn_cnm1", rightFromLeft(rig)))};
}

inline Texts kalibrFromBody(const Rig& rig) {
  const cv::Matx44d right = rightFromLeft(rig) * leftFromBody();
  return {kalibrCamera(rig, 0, rows("T_cam_imu", leftFromBody())) + kalibrCamera(rig, 1, rows("T_cam_imu", right))};
}

inline Texts kalibrToBody(const Rig& rig) {
  const cv::Matx44d right = inverse(rightFromLeft(rig) * leftFromBody());
  const auto flat = [](const cv::Matx44d& m) { return "  T_imu_cam:\n    " + list(values(m)) + "\n"; };
  return {kalibrCamera(rig, 0, flat(inverse(leftFromBody()))) + kalibrCamera(rig, 1, flat(right))};
}

/// Axis times angle, then the translation.
inline std::vector<double> rt(const cv::Matx44d& m) {
  cv::Vec3d r;
  cv::Rodrigues(m.get_minor<3, 3>(0, 0), r);
  return {r[0], r[1], r[2], m(0, 3), m(1, 3), m(2, 3)};
}

inline std::string mrcalCamera(const Rig& rig, const cv::Matx33d& K, const std::vector<double>& D, const char* model,
                               const cv::Matx44d& camera_from_reference) {
  std::vector<double> intrinsics = pinhole(K);
  intrinsics.insert(intrinsics.end(), D.begin(), D.end());
  return fmt::format(
      "# made for a test\n{{\n    'lensmodel':  '{}',\n\n    # fx, fy, cx, cy, the rest\n    'intrinsics': {},\n"
      "    'extrinsics': [ {},],\n    'imagersize': [ {}, {},],\n    'icam_intrinsics': 0,\n"
      "    'optimization_inputs': b'VRhX\\'5',\n}}\n",
      model, list(intrinsics), fmt::join(rt(camera_from_reference), ", "), rig.width, rig.height);
}

inline Texts mrcal(const Rig& rig, const char* model) {
  return {mrcalCamera(rig, rig.K_left, rig.D_left, model, leftFromBody()),
          mrcalCamera(rig, rig.K_right, rig.D_right, model, rightFromLeft(rig) * leftFromBody())};
}

inline std::string eurocCamera(const Rig& rig, const cv::Matx33d& K, const std::vector<double>& D,
                               const cv::Matx44d& camera_from_body) {
  return fmt::format(
      "# A sensor\nsensor_type: camera\nT_BS:\n  cols: 4\n  rows: 4\n  data: {}\nrate_hz: 20\nresolution: [{}, {}]\n"
      "camera_model: pinhole\nintrinsics: {}\ndistortion_model: radial-tangential\ndistortion_coefficients: {}\n",
      list(values(inverse(camera_from_body))), rig.width, rig.height, list(pinhole(K)), list(D));
}

inline Texts euroc(const Rig& rig) {
  return {eurocCamera(rig, rig.K_left, rig.D_left, leftFromBody()),
          eurocCamera(rig, rig.K_right, rig.D_right, rightFromLeft(rig) * leftFromBody())};
}

/// The pose of a camera in the body, as position and quaternion (half the angle about the axis).
inline std::string basaltPose(const cv::Matx44d& camera_from_body) {
  const std::vector<double> v = rt(inverse(camera_from_body));
  const cv::Vec3d axis(v[0], v[1], v[2]);
  const double angle = cv::norm(axis);
  const cv::Vec3d q = axis * (std::sin(angle / 2) / angle);
  return fmt::format(R"({{"px": {}, "py": {}, "pz": {}, "qx": {}, "qy": {}, "qz": {}, "qw": {}}})", v[3], v[4], v[5],
                     q[0], q[1], q[2], std::cos(angle / 2));
}

inline std::string basaltCamera(const cv::Matx33d& K, const std::vector<double>& D, bool isFisheye) {
  std::string lens;
  const std::vector<const char*> names = isFisheye
                                             ? std::vector<const char*>{"k1", "k2", "k3", "k4"}
                                             : std::vector<const char*>{"k1", "k2", "p1", "p2", "k3", "k4", "k5", "k6"};
  for (std::size_t k = 0; k < D.size(); ++k) lens += fmt::format(R"(, "{}": {})", names[k], D[k]);
  const char* const type = isFisheye ? "kb4" : D.empty() ? "pinhole" : "pinhole-radtan8";
  return fmt::format(R"({{"camera_type": "{}", "intrinsics": {{"fx": {}, "fy": {}, "cx": {}, "cy": {}{}}}}})", type,
                     K(0, 0), K(1, 1), K(0, 2), K(1, 2), lens);
}

inline Texts basalt(const Rig& rig) {
  const cv::Matx44d right = rightFromLeft(rig) * leftFromBody();
  return {fmt::format(
      R"({{"value0": {{"T_imu_cam": [{}, {}], "intrinsics": [{}, {}], "resolution": [[{}, {}], [{}, {}]], "imu_rate": 200.0}}}})",
      basaltPose(leftFromBody()), basaltPose(right), basaltCamera(rig.K_left, rig.D_left, rig.isFisheye),
      basaltCamera(rig.K_right, rig.D_right, rig.isFisheye), rig.width, rig.height, rig.width, rig.height)};
}

}  // namespace layouts
