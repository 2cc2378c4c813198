#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "polarline/batch.h"
#include "support/CopiedSet.h"
#include "support/FolderContents.h"

/// A small set beside an empty store, and a batch of it.
struct OneSet : ::testing::Test {
  CopiedSet set{rendered()};
  std::string store = set.parent.file("store");
  polarline::BatchOptions options;
  std::vector<polarline::BatchResult> told;

  OneSet() {
    options.store = store;
    options.on_set = [this](const polarline::BatchResult& result, std::size_t, std::size_t) { told.push_back(result); };
  }

  polarline::BatchSet listed(std::vector<std::pair<std::string, std::string>> metadata = {}) const {
    return {1, set.folder.string(), std::move(metadata)};
  }
  polarline::BatchSet copy(const std::string& name, const std::string& limit = "") const {
    const std::string folder = set.parent.file(name);
    std::filesystem::copy(set.folder, folder);
    if (!limit.empty()) std::ofstream(folder + "/limits.txt") << limit << "\n";
    return {1, folder, {}};
  }
  /// Documents in the store.
  std::vector<std::string> documents() const {
    std::vector<std::string> found;
    for (const auto& [path, content] : contentsOf(store))
      if (path.size() == 72 && path.ends_with(".json")) found.push_back(content);
    return found;
  }
  static std::string withoutTimes(const std::string& document) {
    nlohmann::json json = nlohmann::json::parse(document);
    json.erase("started");
    json.erase("seconds");
    return json.dump();
  }

 private:
  static const RenderedSet& rendered() {
    static const RenderedSet one(small_scene::dots());
    return one;
  }
};
