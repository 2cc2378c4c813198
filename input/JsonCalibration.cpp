#include "input/JsonCalibration.h"

#include <array>
#include <cstddef>
#include <opencv2/core/persistence.hpp>
#include <optional>
#include <utility>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "platform/Document.h"

namespace {

constexpr std::array<const char*, 12> kIntrinsicNames = {"Fx", "Fy", "Cx", "Cy", "K1", "K2",
                                                         "K3", "K4", "K5", "K6", "P1", "P2"};

bool has(const cv::FileStorage& document, const char* member) { return !document[member].empty(); }

bool hasColour(const cv::FileStorage& document) { return has(document, "RGB") || has(document, "COLOR"); }

bool hasInfraredPair(const cv::FileStorage& document) {
  return has(document, "IR_L") && has(document, "IR_R") && hasColour(document);
}

/// Names of the first and the second camera. A depth camera goes before a pair of infra-red ones.
std::optional<std::pair<const char*, const char*>> cameraNames(const cv::FileStorage& document) {
  if (has(document, "DEPTH") && has(document, "RGB")) return std::pair{"DEPTH", "RGB"};
  if (has(document, "DEPTH") && has(document, "COLOR")) return std::pair{"DEPTH", "COLOR"};
  if (hasInfraredPair(document)) return std::pair{"IR_L", "IR_R"};
  return std::nullopt;
}

double number(const cv::FileNode& node, const char* member) { return static_cast<double>(node[member]); }

void readIntrinsics(const cv::FileNode& camera, CameraCalib& calib) {
  for (std::size_t k = 0; k < kIntrinsicNames.size(); ++k) {
    calib.intrinsics.at(k) = number(camera, kIntrinsicNames.at(k));
  }
}

void readPose(const cv::FileNode& rotation, const cv::FileNode& translation, StereoCalibParams& calib) {
  calib.extrinsics = {number(rotation, "RX"),    number(rotation, "RY"),    number(rotation, "RZ"),
                      number(translation, "TX"), number(translation, "TY"), number(translation, "TZ")};
}

void readExtrinsics(const cv::FileStorage& document, StereoCalibParams& calib) {
  cv::FileNode pose = document["IR_R"];
  if (has(document, "Depth2RGB_Rotate") && has(document, "Depth2RGB_Trans")) {
    readPose(document["Depth2RGB_Rotate"], document["Depth2RGB_Trans"], calib);
    // Meant: from here on the infra-red pose is looked for in this node, so that a document with both poses gives
    // zeros.
    pose = document["Depth2RGB_Trans"];
  }
  if (hasInfraredPair(document)) readPose(pose["Rotate"], pose["Translate"], calib);
}

}  // namespace

std::int32_t readJsonCalibration(const std::string& path, StereoCalibParams& calib, std::string& errorText) {
  const cv::FileStorage document = documents::openForReading(path);
  if (!document.isOpened()) {
    console::line("cannot open the calib_result file");
    errorText = "Fail to read calib result file";
    return polar_status::kCalibrationUnreadable;
  }
  const auto names = cameraNames(document);
  if (!names) {
    console::line("not support the Json object, please input [IR/DEPTH/RGB/COLOR/IR_L/IR_R]");
    return polar_status::kCalibrationUnreadable;
  }
  readIntrinsics(document[names->first], calib.left);
  readIntrinsics(document[names->second], calib.right);
  readExtrinsics(document, calib);
  return polar_status::kSuccess;
}
