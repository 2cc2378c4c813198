#include "check/init/PolarText.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "input/PolarConfigKeys.h"
#include "input/PolarConfigReader.h"

namespace {

/// Another value than the default in every field.
PolarConfig unusual() {
  PolarConfig config;
  double next = 2.0;
  polar_keys::forEach([&](const auto& key) {
    auto& value = key.valueIn(config);
    using Value = std::remove_cvref_t<decltype(value)>;
    next += 1.0;
    if constexpr (std::is_same_v<Value, bool>)
      value = !value;
    else if constexpr (std::is_arithmetic_v<Value>)
      value = static_cast<Value>(next + 0.1);
    else if constexpr (std::is_same_v<Value, std::vector<double>>)
      value = {next, -0.1, 1e-9};
    else if constexpr (std::is_same_v<Value, std::vector<std::int32_t>>)
      value = {3, 1};
    else
      value = {{1, 2}, {3}};
  });
  return config;
}

TEST(PolarText, ReadAgainGivesEveryKey) {
  for (const PolarConfig& config : {unusual(), PolarConfig{}}) {
    PolarConfig back;
    std::string text = init::polarText(config, "title");
    // The points of a plain record are empty, which the reader takes for a fault; nobody writes them so.
    if (config.TriPoint1_GT.empty()) {
      std::istringstream lines(text);
      text.clear();
      for (std::string line; std::getline(lines, line);)
        if (line.find("_GT:") == std::string::npos) text += line + "\n";
    }
    ASSERT_EQ(ReadPolarConfig(text, "", back), 0);
    polar_keys::forEach([&](const auto& key) { EXPECT_EQ(key.valueIn(back), key.valueIn(config)) << key.name; });
  }
}

TEST(PolarText, EveryKeyStandsOnceUnderWhatItMeans) {
  const std::string text = init::polarText({}, "title");
  EXPECT_TRUE(text.starts_with("# title\n"));
  polar_keys::forEach([&](const auto& key) {
    const std::size_t at = text.find("\n" + std::string(key.name) + ": ");
    ASSERT_NE(at, std::string::npos) << key.name;
    EXPECT_EQ(text.find("\n" + std::string(key.name) + ": ", at + 1), std::string::npos) << key.name;
    const std::size_t comment = text.rfind(std::string("# ") + key.meaning + ".\n", at);
    ASSERT_NE(comment, std::string::npos) << key.name;
    EXPECT_EQ(text.substr(comment, at - comment).find("\n\n"), std::string::npos) << key.name;
  });
}

TEST(PolarText, ANoteStandsAboveItsKey) {
  const std::string text = init::polarText({}, "title", {{"f_scale", "room for all dots"}});
  EXPECT_NE(text.find("\n# Chosen here: room for all dots.\nf_scale: 1\n"), std::string::npos) << text;
  EXPECT_EQ(text.find("Chosen here"), text.rfind("Chosen here"));
}

TEST(PolarText, OnlyCommentsKeysAndEmptyLines) {
  std::istringstream lines(init::polarText(unusual(), "title"));
  for (std::string line; std::getline(lines, line);)
    EXPECT_TRUE(line.empty() || line[0] == '#' || line.find(": ") != std::string::npos) << line;
}

}  // namespace
