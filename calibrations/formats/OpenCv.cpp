#include <algorithm>
#include <opencv2/core.hpp>
#include <optional>

#include "calibrations/formats/CameraNode.h"
#include "calibrations/formats/Formats.h"
#include "calibrations/formats/PoseNode.h"
#include "calibrations/geometry/Angles.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

using Names = std::initializer_list<const char*>;

/// What each thing is called: by OpenCV's own sample first, then by programs around it.
constexpr Names kMatrixLeft = {"M1", "K1", "camera_matrix_left", "cameraMatrix1", "left_camera_matrix"};
constexpr Names kMatrixRight = {"M2", "K2", "camera_matrix_right", "cameraMatrix2", "right_camera_matrix"};
constexpr Names kLensLeft = {"D1", "dist_coeffs_left", "distortion_coeffs_left", "distCoeffs1",
                             "left_distortion_coefficients"};
constexpr Names kLensRight = {"D2", "dist_coeffs_right", "distortion_coeffs_right", "distCoeffs2",
                              "right_distortion_coefficients"};
constexpr Names kMatrix = {"K", "M", "camera_matrix", "cameraMatrix"};
constexpr Names kLens = {"D", "distortion_coefficients", "dist_coeffs", "distCoeffs"};
constexpr Names kRotation = {"R", "rotation_matrix"};
constexpr Names kTranslation = {"T", "translation_vector"};
constexpr Names kSize = {"image_size", "imageSize", "size"};
constexpr Names kWidth = {"image_width", "imageWidth", "width"};
constexpr Names kHeight = {"image_height", "imageHeight", "height"};

polarline::Size sizeIn(const Node& document) {
  if (const auto size = document.find(kSize)) return sizeOf(*size);
  const auto width = document.find(kWidth);
  const auto height = document.find(kHeight);
  return width && height ? sizeOf(width->number(), height->number(), *width) : polarline::Size{};
}

/// Four coefficients may be of either lens; what we write ourselves says which.
std::string modelIn(const Node& document, const polarline::ImportOptions& options) {
  if (!options.model.empty()) return options.model;
  const auto model = document.find("polarline_model");
  return model ? model->text() : "";
}

SourceCamera openCvCamera(const Node& document, Names matrix, Names lens, const polarline::ImportOptions& options) {
  SourceCamera source;
  setMatrix(source.camera, document.at(matrix));
  const Node node = document.at(lens);
  const std::vector<double> coefficients = node.numbers();
  const std::string model = modelIn(document, options);
  if (model.empty() && coefficients.size() == 4) {
    node.refuse(
        "has four coefficients, which may be of a Brown or of a fisheye lens; say which (--model brown or --model "
        "fisheye)");
  }
  if (model == "fisheye") {
    setFisheye(source, coefficients, node);
  } else {
    setBrown(source, coefficients, node);
  }
  source.camera.size = sizeIn(document);
  return source;
}

/// The angles that we write beside R, unless R has been changed since.
std::optional<Angles> anglesIn(const Node& pose, const cv::Matx33d& rotation) {
  constexpr double kLastBits = 1e-14;  // Of sines and of the nearest rotation.
  const auto node = pose.find("polarline_angles");
  if (!node) return std::nullopt;
  const std::vector<double> values = node->numbers(3);
  const Angles angles{values[0], values[1], values[2]};
  if (cv::norm(rotationOf(angles) - rotation, cv::NORM_INF) > kLastBits) return std::nullopt;
  return angles;
}

std::vector<Node> having(const Documents& documents, Names names) {
  std::vector<Node> found;
  for (const Document& document : documents) {
    if (Node(document).find(names)) found.emplace_back(document);
  }
  return found;
}

/// The one document that has it.
Node only(const Documents& documents, Names names) {
  const std::vector<Node> found = having(documents, names);
  if (found.size() > 1) found[1].refuse(std::string("has ") + *names.begin() + " again; one of each was wanted");
  return found.empty() ? Node(documents.back()) : found.front();
}

/// Names the half that is missing: programs of OpenCV write cameras and pose into files of their own.
void requireBothHalves(const Documents& documents, std::size_t singles) {
  const std::string& place = documents.front().place;
  const bool has_cameras = singles == 2 || !having(documents, kMatrixLeft).empty();
  const bool has_pose = !having(documents, kRotation).empty() || !having(documents, kTranslation).empty();
  if (singles == 1)
    throw polarline::InputError(place, "has one camera; the files of both cameras and that of R and T were wanted");
  if (has_cameras && !has_pose)
    throw polarline::InputError(place, "has the cameras, not their pose; name the file with R and T as well");
  if (has_pose && !has_cameras)
    throw polarline::InputError(place, "has the pose, not the cameras; name the file with M1, D1, M2 and D2 as well");
}

}  // namespace

SourcePair readOpenCv(const Documents& documents, const polarline::ImportOptions& options) {
  if (options.pair) throw polarline::InputError("--pair", "is not for OpenCV, whose files hold one pair");
  SourcePair pair;
  const std::vector<Node> singles = having(documents, kMatrix);
  requireBothHalves(documents, singles.size());
  if (singles.size() == 2) {
    pair.left = openCvCamera(singles[0], kMatrix, kLens, options);
    pair.right = openCvCamera(singles[1], kMatrix, kLens, options);
  } else {
    const Node cameras =
        having(documents, kMatrixLeft).empty() ? Node(documents.front()) : only(documents, kMatrixLeft);
    pair.left = openCvCamera(cameras, kMatrixLeft, kLensLeft, options);
    pair.right = openCvCamera(cameras, kMatrixRight, kLensRight, options);
  }
  const Node pose = only(documents, kRotation);
  pair.right_from_left.R = rotationOf(pose.at(kRotation), pair.deviation);
  const std::vector<double> t = pose.at(kTranslation).numbers(3);
  pair.right_from_left.T = {t[0], t[1], t[2]};
  pair.angles = anglesIn(pose, pair.right_from_left.R);
  return pair;
}

}  // namespace calibrations
