#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "polarline/errors.h"

/// Whether the action throws an `InputError` whose text holds these words.
template <typename Action>
void expectRefused(const Action& action, const std::string& words) {
  try {
    action();
    ADD_FAILURE() << "not refused; wanted: " << words;
  } catch (const polarline::InputError& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr(words));
  }
}
