#include "check/init/ListNames.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/TempFolder.h"

namespace {

using init::Placement;

class ListNames : public testing::Test {
 protected:
  ListNames() { std::filesystem::create_directories(folder_.path() / "pictures" / "with blank"); }

  std::string picture(const std::string& name) const { return folder_.write(name, "x"); }
  init::ListedLine line(const std::string& left, const std::string& right, bool copy = false) const {
    return init::listNames(folder_.file("set"), {{picture(left), picture(right)}}, copy).front();
  }

  TempFolder folder_;
};

TEST_F(ListNames, ArePathsFromTheSetsFolder) {
  const init::ListedLine named = line("pictures/l.png", "r.png");
  EXPECT_EQ(named.left.name, "../pictures/l.png");
  EXPECT_EQ(named.right.name, "../r.png");
  EXPECT_EQ(named.left.placement, Placement::kWhereItIs);
  std::filesystem::create_directory(folder_.path() / "set");
  EXPECT_EQ(line("set/l.png", "r.png").left.name, "l.png");
}

TEST_F(ListNames, GoTheRealWayRoundALinkedFolder) {
  std::filesystem::create_directories(folder_.path() / "far" / "set");
  std::filesystem::create_directory_symlink(folder_.path() / "far" / "set", folder_.path() / "link");
  const auto lines = init::listNames(folder_.file("link"), {{picture("l.png"), picture("r.png")}}, false);
  EXPECT_EQ(lines[0].left.name, "../../l.png");
}

TEST_F(ListNames, WhatAListCantHoldGetsALink) {
  for (const std::string name :
       {"a b.png", "a\\b.png", "a\nb.png", "a\tb.png", "\xc3\xa4.png", "\xff.png", "pictures/with blank/l.png"}) {
    const init::ListedLine named = line(name, "r.png");
    EXPECT_EQ(named.left.name, "left_0000.png") << name;
    EXPECT_EQ(named.left.placement, Placement::kLink) << name;
    EXPECT_EQ(named.left.source, std::filesystem::canonical(folder_.path()) / name) << name;
    EXPECT_EQ(named.right.placement, Placement::kWhereItIs) << name;
  }
}

TEST_F(ListNames, AnExtensionOfOddBytesFallsAway) { EXPECT_EQ(line("a b.p g", "r.png").left.name, "left_0000"); }

TEST_F(ListNames, ALineThatIsTooLongGetsLinks) {
  const std::string deep = std::string(200, 'a') + "/" + std::string(60, 'b');
  std::filesystem::create_directories(folder_.path() / deep);
  const init::ListedLine named = line(deep + "/l.png", deep + "/r.png");
  EXPECT_EQ(named.left.name, "left_0000.png");
  EXPECT_EQ(named.right.name, "right_0000.png");
}

TEST_F(ListNames, CopiesBearThePairsIndex) {
  const std::string left = picture("l.png");
  const std::string right = picture("r.png");
  const auto lines = init::listNames(folder_.file("set"), {{left, right}, {left, right}}, true);
  EXPECT_EQ(lines[1].right.name, "right_0001.png");
  EXPECT_EQ(lines[1].right.placement, Placement::kCopy);
}

TEST_F(ListNames, APictureOfTheSetIsNeverReplaced) {
  // The folder of the set holds a picture that bears the name of a link.
  const auto lines =
      init::listNames(folder_.path().string(),
                      {{picture("a b.png"), picture("r.png")}, {picture("left_0000.png"), picture("r2.png")}}, false);
  EXPECT_EQ(lines[0].left.name, "left_0000_1.png");
  EXPECT_EQ(lines[1].left.name, "left_0000.png");
  EXPECT_EQ(lines[1].left.placement, Placement::kWhereItIs);
}

TEST_F(ListNames, ACopyOntoItselfIsNone) {
  const auto lines =
      init::listNames(folder_.path().string(), {{picture("left_0000.png"), picture("right_0000.png")}}, true);
  EXPECT_EQ(lines[0].left.placement, Placement::kWhereItIs);
  EXPECT_EQ(lines[0].left.name, "left_0000.png");
}

TEST(ListNamesText, IsAHeaderAndALineAPair) {
  EXPECT_EQ(init::listText({{{"a.png", "", {}}, {"b.png", "", {}}}, {{"c", "", {}}, {"d", "", {}}}}),
            "#L R\na.png b.png\nc d\n");
}

}  // namespace
