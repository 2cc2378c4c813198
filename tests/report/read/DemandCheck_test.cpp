#include "report/read/DemandCheck.h"

#include <gtest/gtest.h>

#include <string>

#include "MadeDocument.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

TEST(DemandCheckOf, TakesADocument) {
  const Json document = made_document::fullDocument();
  EXPECT_NO_THROW(demandCheck(Place(document, "r.json")));
}

class DemandCheckSpoiled : public ::testing::TestWithParam<const char*> {};

TEST_P(DemandCheckSpoiled, IsRefusedWithItsKey) {
  const nlohmann::json_pointer<std::string> place(GetParam());
  Json document = made_document::fullDocument();
  ASSERT_TRUE(document.contains(place));
  document[place] = Json::parse(R"({"odd": [true]})");
  try {
    demandCheck(Place(document, "r.json"));
    FAIL() << "was taken";
  } catch (const InputError& error) {
    std::string key = GetParam();
    key = key.substr(key.rfind('/') + 1);
    if (key.find_first_not_of("0123456789") != std::string::npos) {
      EXPECT_NE(std::string(error.what()).find(key), std::string::npos) << error.what();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, DemandCheckSpoiled,
    ::testing::Values("/schema", "/tool", "/tool/name", "/tool/version", "/started", "/seconds", "/set/name",
                      "/set/folder", "/set/id", "/set/inputs", "/set/inputs/0", "/set/inputs/0/role",
                      "/set/inputs/0/path", "/set/inputs/0/sha256", "/status", "/status/text", "/status/advice",
                      "/status/retry", "/board/rows", "/board/cols", "/board/step", "/board/type", "/cameras/model",
                      "/cameras/width", "/cameras/left", "/cameras/left/fx", "/cameras/right/coefficients",
                      "/cameras/extrinsics/rx", "/pairs", "/pairs/0", "/pairs/0/index", "/pairs/0/left",
                      "/pairs/0/state", "/pairs/1/reason/text", "/pairs/1/reason/side", "/pairs/0/figures/dy_means",
                      "/pairs/0/carried", "/pairs/0/uncertainty/dy_means", "/pairs/0/uncertainty/dy_means/sd",
                      "/pairs/0/found/left", "/pairs/0/quality/left/noise", "/pairs/0/quality/coverage",
                      "/pairs/0/refined/problem", "/pairs/0/refined/uncertainty/dy_means",
                      "/pairs/0/refined/uncertainty/dy_means/low95", "/pairs/0/refined/figures/dy_means",
                      "/pairs/0/refined/dots", "/summary/pairs", "/summary/figures/dy_means",
                      "/summary/figures/dy_means/mean", "/summary/refined/figures/dy_means/max", "/limits",
                      "/limits/0/text", "/limits/0/value", "/limits/0/holds", "/limits/0/why", "/verdict", "/warnings",
                      "/warnings/0/code", "/warnings/0/pair", "/diagnosis/text", "/diagnosis/causes",
                      "/diagnosis/causes/0/value", "/diagnosis/pattern_left", "/diagnosis/correction/path"));

}  // namespace
}  // namespace polarline
