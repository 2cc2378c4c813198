#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>

#include "support/Places.h"
#include "support/RenderedSet.h"
#include "tools/scene/Reachable.h"

namespace {

nlohmann::json bounds() {
  std::ifstream file(places::inProject("tests/exports/accuracy_bounds.json"));
  return nlohmann::json::parse(file);
}

std::vector<std::string> boundedPresets() {
  std::vector<std::string> names;
  const nlohmann::json all = bounds();
  for (const auto& [name, bound] : all.items())
    if (bound.is_object()) names.push_back(name);
  return names;
}

/// Mean square of what is added, rooted.
class RootMeanSquare {
 public:
  void add(double value) {
    sum_ += value * value;
    ++count_;
  }
  double value() const { return std::sqrt(sum_ / static_cast<double>(count_)); }
  std::size_t count() const { return count_; }

 private:
  double sum_ = 0.0;
  std::size_t count_ = 0;
};

std::map<std::int32_t, double> readRowDifferences(const std::string& text) {
  std::map<std::int32_t, double> rows;
  std::istringstream stream(text);
  std::int32_t id = 0;
  char comma = 0;
  double dy = 0.0;
  while (stream >> id >> comma >> dy) rows[id] = dy;
  return rows;
}

/// Ids that a detection of this pair has to give: reachable, with ink and whole in view.
std::set<std::int32_t> expectedIds(const scene::Board& board, const scene::PairTruth& truth) {
  std::set<std::int32_t> ids;
  for (const int id : scene::reachableIds(board).reached) {
    const scene::DotTruth& dot = truth.dots.at(static_cast<std::size_t>(id));
    if (dot.drawn && dot.in_view) ids.insert(id);
  }
  return ids;
}

class Accuracy : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    outcome_ = set().evaluate(set().polarText(), results_.path().string());
    ASSERT_EQ(outcome_.status, 0) << outcome_.error_text << outcome_.err;
    ASSERT_EQ(outcome_.records.size(), set().scene().left_from_board.size());
  }
  const RenderedSet& set() const { return RenderedSet::of(GetParam()); }

  TempFolder results_;
  RunOutcome outcome_;
};

TEST_P(Accuracy, StaysWithinTheBoundsKeptInTheRepository) {
  const nlohmann::json bound = bounds().at(GetParam());
  RootMeanSquare centres;
  RootMeanSquare rows;
  for (std::size_t pair = 0; pair < outcome_.records.size(); ++pair) {
    const scene::PairTruth truth = scene::pairTruth(set().scene(), pair);
    std::set<std::int32_t> missing = expectedIds(set().scene().board, truth);
    const std::set<std::int32_t> expected = missing;
    for (const TriPointRecord& point : outcome_.records[pair].pairPoints) {
      missing.erase(point.id);
      if (expected.count(point.id) == 0) continue;
      const scene::DotTruth& dot = truth.dots.at(static_cast<std::size_t>(point.id));
      centres.add(std::hypot(point.left_x - dot.ellipse_left.centre.x, point.left_y - dot.ellipse_left.centre.y));
      centres.add(std::hypot(point.right_x - dot.ellipse_right.centre.x, point.right_y - dot.ellipse_right.centre.y));
    }
    EXPECT_LE(missing.size(), bound.at("missing").get<std::size_t>()) << "pair " << pair;
    for (const auto& [id, dy] : readRowDifferences(results_.read(std::to_string(pair) + "_left_dy.csv")))
      if (expected.count(id) != 0) rows.add(dy - std::abs(truth.dots.at(static_cast<std::size_t>(id)).row_difference));
  }
  ASSERT_GT(centres.count(), 0U);
  ASSERT_GT(rows.count(), 0U);
  EXPECT_LT(centres.value(), bound.at("centre_rms").get<double>());
  EXPECT_LT(rows.value(), bound.at("row_rms").get<double>());
  RecordProperty("centre_rms", std::to_string(centres.value()));
  RecordProperty("row_rms", std::to_string(rows.value()));
  std::printf("%s: centres %.4f px rms, row differences %.4f px rms, %zu points\n", GetParam().c_str(), centres.value(),
              rows.value(), centres.count() / 2);
}

INSTANTIATE_TEST_SUITE_P(Presets, Accuracy, ::testing::ValuesIn(boundedPresets()),
                         [](const auto& preset) { return preset.param; });

}  // namespace
