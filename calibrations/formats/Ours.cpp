#include <array>

#include "calibrations/formats/CameraNode.h"
#include "calibrations/formats/Formats.h"
#include "calibrations/geometry/Angles.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

/// As the library reads it: a member that is not there is 0.
double numberIn(const Node& node, const char* name) {
  const auto member = node.find(name);
  return member ? member->number() : 0.0;
}

SourceCamera oursCamera(const Node& node) {
  SourceCamera source;
  setPinhole(source.camera, {numberIn(node, "Fx"), numberIn(node, "Fy"), numberIn(node, "Cx"), numberIn(node, "Cy")},
             node);
  constexpr std::array<const char*, 6> kNames = {"K1", "K2", "K3", "K4", "K5", "K6"};
  for (std::size_t k = 0; k < kNames.size(); ++k) source.camera.k.at(k) = numberIn(node, kNames.at(k));
  source.camera.p1 = numberIn(node, "P1");
  source.camera.p2 = numberIn(node, "P2");
  return source;
}

/// Whether only Brown has such coefficients.
bool isBrown(const polarline::Camera& camera) {
  return camera.k[4] != 0.0 || camera.k[5] != 0.0 || camera.p1 != 0.0 || camera.p2 != 0.0;
}

/// The file does not tell its lens model.
Lens lensOf(const SourcePair& pair, const Node& root, const std::string& model) {
  const bool onlyBrown = isBrown(pair.left.camera) || isBrown(pair.right.camera);
  if (model.empty() && !onlyBrown) {
    root.refuse(
        "may be of a Brown or of a fisheye lens, as K5, K6, P1 and P2 are 0; say which (--model brown or --model "
        "fisheye)");
  }
  if (model == "fisheye" && onlyBrown) root.refuse("has K5, K6, P1 or P2, which no fisheye has");
  return model == "fisheye" ? Lens::kFisheye : Lens::kBrown;
}

}  // namespace

SourcePair readOurs(const Documents& documents, const polarline::ImportOptions& options) {
  if (options.pair) throw polarline::InputError("--pair", "is not for our own files, which hold one pair");
  if (documents.size() != 1) Node(documents[1]).refuse("is one file too many; one calibration was wanted");
  const Node root(documents.front());
  if (root.has("DEPTH")) root.at("DEPTH").refuse("is a depth camera; a pair of infra-red ones alone was wanted");
  SourcePair pair;
  pair.left = oursCamera(root.at("IR_L"));
  const Node right = root.at("IR_R");
  pair.right = oursCamera(right);
  pair.left.lens = pair.right.lens = lensOf(pair, root, options.model);
  const Node rotation = right.at("Rotate");
  const Node translation = right.at("Translate");
  pair.angles = Angles{numberIn(rotation, "RX"), numberIn(rotation, "RY"), numberIn(rotation, "RZ")};
  pair.right_from_left.R = rotationOf(*pair.angles);
  pair.right_from_left.T = {numberIn(translation, "TX"), numberIn(translation, "TY"), numberIn(translation, "TZ")};
  return pair;
}

}  // namespace calibrations
