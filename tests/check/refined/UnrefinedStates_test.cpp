#include "check/refined/UnrefinedStates.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace polarline {
namespace {

TEST(UnrefinedStates, HaveWordsThatTellThemApart) {
  std::set<std::string> words = {nameOf(DotState::kRefined)};
  for (const DotState state : kUnrefinedStates) words.insert(nameOf(state));
  EXPECT_EQ(words, (std::set<std::string>{"refined", "clipped", "covered", "overlapped", "unclear"}));
}

}  // namespace
}  // namespace polarline
