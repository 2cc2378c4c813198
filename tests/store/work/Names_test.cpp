#include "store/work/Names.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "check/set/Fingerprint.h"

namespace polarline {
namespace {

TEST(Names, TellSettingsApart) {
  std::vector<CheckOptions> all(7);
  all[1].refine = true;
  all[2].limits = {"dy_means<=0.1"};
  all[3].limits = {"dy_means<=0.1", "dy_max<=1"};
  all[4].settings = {"f_scale=2"};
  all[5].pairs = {0, 3};
  all[6].limits = {"dy_max<=1", "dy_means<=0.1"};
  std::set<std::string> hashes;
  for (const CheckOptions& each : all) hashes.insert(names::settingsHash(each));
  EXPECT_EQ(hashes.size(), all.size());
  EXPECT_EQ(names::settingsHash({}), sha256(""));
  EXPECT_EQ(names::settingsHash(all[3]), sha256("limit dy_means<=0.1\nlimit dy_max<=1\n"));
}

TEST(Names, DependOnNothingThatLeavesADocumentAsItIs) {
  CheckOptions options;
  options.keep_points = false;
  options.go_on = [] { return true; };
  EXPECT_EQ(names::settingsHash(options), names::settingsHash({}));
}

TEST(Names, AreOfIdAndSettings) {
  EXPECT_EQ(names::byId("11", "22"), sha256("id 11\nsettings 22\n"));
  EXPECT_NE(names::byId("11", "22"), names::byId("22", "11"));
  EXPECT_EQ(names::byId("11", "22").size(), 64U);
}

TEST(Names, OfAPathAreThoseOfThePlace) {
  const std::string place = (std::filesystem::current_path() / "a").string();
  const std::string name = names::byPath("a", "22");
  for (const std::string& path : {place, place + "/", std::string("./a"), std::string("b/../a/")})
    EXPECT_EQ(names::byPath(path, "22"), name) << path;
  EXPECT_NE(names::byPath("b", "22"), name);
  EXPECT_NE(names::byPath("a", "23"), name);
}

}  // namespace
}  // namespace polarline
