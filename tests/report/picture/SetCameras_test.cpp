#include "report/picture/SetCameras.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"
#include "support/CopiedSet.h"

namespace polarline {
namespace {

TEST(SetCamerasOf, ADocumentThatTellsThem) {
  const auto cameras = setCameras(made_document::json(made_document::check()), "");
  ASSERT_TRUE(cameras);
  EXPECT_EQ(cameras->model, LensModel::kBrownFive);
}

/// The tables of a polynomial lens stand in the calibration only, so the file is read; here it is one of other lenses.
TEST(SetCamerasOf, APolynomialLensFromTheCalibration) {
  const CopiedSet set;
  Json document = made_document::json(set.check());
  const auto told = setCameras(document, "");
  document["cameras"]["model"] = "poly";
  const auto read = setCameras(document, "");
  ASSERT_TRUE(told && read);
  EXPECT_EQ(read->model, LensModel::kPoly);
  EXPECT_EQ(read->calib.left.intrinsics, told->calib.left.intrinsics);
  EXPECT_EQ(read->calib.extrinsics, told->calib.extrinsics);
  set.append("calib.json", " ");
  EXPECT_FALSE(setCameras(document, "")) << "it is another file now";
}

}  // namespace
}  // namespace polarline
