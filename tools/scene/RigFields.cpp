#include "tools/scene/RigFields.h"

#include <array>
#include <numbers>

#include "tools/scene/Single.h"

namespace scene {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

constexpr Span kDegrees{-45.0, 45.0};
constexpr Span kLength{-1e6, 1e6, true};
constexpr Span kCoefficient{-1e6, 1e6, true};

/// Another image size: focal lengths and the principal column go with the width, the principal row with the height.
void resize(Camera& camera, int width, int height) {
  const double by_width = static_cast<double>(width) / camera.width;
  const double by_height = static_cast<double>(height) / camera.height;
  for (double* value : {&camera.fx, &camera.fy, &camera.cx}) *value = single(*value * by_width);
  camera.cy = single(camera.cy * by_height);
  camera.width = width;
  camera.height = height;
}

/// Another model: the coefficients mean something else there.
void setModel(Camera& camera, LensModel model) {
  if (camera.model == model) return;
  camera.model = model;
  camera.lens = {};
  camera.table = {};
  if (model == LensModel::kPoly) camera.table.columns = camera.table.rows = 4;
}

void cameraFields(Fields& f, Camera& camera) {
  f.number("fx", camera.fx, {1.0, 1e6, true});
  f.number("fy", camera.fy, {1.0, 1e6, true});
  f.number("cx", camera.cx, {-1e5, 1e5, true});
  f.number("cy", camera.cy, {-1e5, 1e5, true});
  constexpr std::array<const char*, 8> kLensNames{"k1", "k2", "k3", "k4", "k5", "k6", "p1", "p2"};
  const std::size_t count = camera.model == LensModel::kFisheye ? 4 : kLensNames.size();
  for (std::size_t k = 0; k < count; ++k) f.number(kLensNames.at(k), camera.lens.at(k), kCoefficient);
}

void sizeFields(Fields& f, StereoRig& rig) {
  int width = rig.left.width;
  int height = rig.left.height;
  f.integer("width", width, {64, 16384});
  f.integer("height", height, {64, 16384});
  for (Camera* camera : {&rig.left, &rig.right}) resize(*camera, width, height);
}

void modelFields(Fields& f, StereoRig& rig) {
  auto model = static_cast<std::size_t>(rig.left.model);
  f.choice("model", model, {"brown", "fisheye", "poly"});
  for (Camera* camera : {&rig.left, &rig.right}) setModel(*camera, static_cast<LensModel>(model));
  if (rig.left.model != LensModel::kPoly) return;
  f.object("cells", [&](Fields& inner) {
    inner.integer("columns", rig.left.table.columns, {1, 25});
    inner.integer("rows", rig.left.table.rows, {1, 25});
  });
  rig.right.table = rig.left.table;
}

void focalField(Fields& f, StereoRig& rig) {
  double focal = rig.left.fx;
  f.shorthand("focal", focal, {1.0, 1e6, true});
  const double by_focal = focal / rig.left.fx;
  for (double* value : {&rig.left.fx, &rig.left.fy, &rig.right.fx, &rig.right.fy}) *value = single(*value * by_focal);
}

void poseFields(Fields& f, StereoRig& rig) {
  Angles& a = rig.right_from_left_angles;
  Point3& t = rig.right_from_left_translation;
  double baseline = -t.x;
  f.shorthand("baseline", baseline, {1e-3, 1e6, true});
  t.x = -baseline;
  Angles degrees{a.rx / kDegree, a.ry / kDegree, a.rz / kDegree};
  f.numbers("rotation", {&degrees.rx, &degrees.ry, &degrees.rz}, kDegrees);
  a = {single(degrees.rx * kDegree), single(degrees.ry * kDegree), single(degrees.rz * kDegree)};
  f.numbers("translation", {&t.x, &t.y, &t.z}, kLength);
}

}  // namespace

void rigFields(Fields& f, StereoRig& rig) {
  sizeFields(f, rig);
  modelFields(f, rig);
  focalField(f, rig);
  f.object("left", [&](Fields& inner) { cameraFields(inner, rig.left); });
  f.object("right", [&](Fields& inner) { cameraFields(inner, rig.right); });
  poseFields(f, rig);
}

}  // namespace scene
