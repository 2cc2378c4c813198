#include "tools/polarline/Outputs.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace {

using command::requireSeparate;

struct Outputs : testing::Test {
  TempFolder folder;
  std::string input = folder.write("calib.json", "{}");
  std::string fresh = folder.file("result.json");
};

TEST_F(Outputs, BesideTheInputsAreFine) {
  EXPECT_NO_THROW(requireSeparate({{"--json", fresh}, {"--csv", folder.file("other")}}, {input}));
}

TEST_F(Outputs, OnAnInputAreRefused) {
  try {
    requireSeparate({{"--json", folder.file("./calib.json")}}, {input});
    FAIL();
  } catch (const polarline::InputError& error) {
    EXPECT_EQ(error.what(), folder.file("./calib.json") + ": is an input; name another file for --json");
  }
}

TEST_F(Outputs, OnALinkToAnInputAreRefused) {
  std::filesystem::create_symlink(input, folder.file("link"));
  EXPECT_THROW(requireSeparate({{"--json", folder.file("link")}}, {input}), polarline::InputError);
}

TEST_F(Outputs, OnEachOtherAreRefused) {
  EXPECT_THROW(requireSeparate({{"--csv", fresh}, {"--json", folder.file("./result.json")}}, {}),
               polarline::InputError);
}

TEST_F(Outputs, OnStandardOutputOrADeviceAreNoFiles) {
  EXPECT_NO_THROW(requireSeparate({{"--csv", "-"}, {"--json", "-"}, {"-o", ""}}, {"-", ""}));
  EXPECT_NO_THROW(requireSeparate({{"--csv", "/dev/null"}, {"--json", "/dev/null"}}, {}));
}

}  // namespace
