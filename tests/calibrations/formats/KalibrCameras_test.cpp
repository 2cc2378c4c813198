#include "calibrations/formats/KalibrCameras.h"

#include <gtest/gtest.h>

#include "calibrations/document/YamlText.h"

namespace {

std::size_t camerasIn(const char* text) {
  const calibrations::Document document{"file", calibrations::Syntax::kYaml,
                                        calibrations::valuesOfYaml(text, "file").front()};
  return calibrations::kalibrCameras(calibrations::Node(document)).size();
}

TEST(KalibrCameras, FollowEachOtherFromNought) {
  EXPECT_EQ(camerasIn("cam0: {a: 1}\ncam1: {a: 1}\ncam3: {a: 1}\n"), 2U);
  EXPECT_EQ(camerasIn("cam1: {a: 1}\n"), 0U);
}

TEST(KalibrCameras, AreMaps) { EXPECT_EQ(camerasIn("cam0: {a: 1}\ncam1: text\n"), 1U); }

}  // namespace
