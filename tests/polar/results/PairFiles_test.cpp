#include "polar/results/PairFiles.h"

#include <gtest/gtest.h>

namespace {

TEST(PairFiles, FolderNumberAndSuffix) { EXPECT_EQ(pairFile("out", 12, "_right_tri.csv"), "out/12_right_tri.csv"); }

TEST(PairFiles, NoFolderNoFile) { EXPECT_EQ(pairFile("", 12, "_right_tri.csv"), ""); }

}  // namespace
