#include "tools/causes/SimulatedSet.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "tools/causes/CentreErrors.h"
#include "tools/scene/Random.h"

namespace causes {

namespace {

constexpr std::array kModels{LensModel::kBrownFive, LensModel::kFisheye,   LensModel::kBrownEight,
                             LensModel::kPoly,      LensModel::kBrownFive, LensModel::kFisheye};
constexpr std::uint64_t kMostPairs = 6;

/// Evenly from -1 to below 1.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : random_(seed) {}
  double operator()() { return static_cast<double>(random_.bits() >> 11U) * 0x1.0p-52 - 1.0; }
  /// With this probability.
  bool falls(double probability) { return (*this)() < 2.0 * probability - 1.0; }

 private:
  scene::Random random_;
};

/// As drawn for each cause; which of them are there is drawn beside it.
scene::Misalignment misalignmentOf(Present present, Dice& dice) {
  constexpr double kPart = 0.35;
  constexpr std::array kMost{0.2, 0.2, 0.2, 0.002, 3.0, 0.6, 0.6, 0.005};
  const auto only = static_cast<std::size_t>(0.5 * (dice() + 1.0) * kMost.size());
  std::array<double, kMost.size()> values{};
  for (std::size_t k = 0; k < kMost.size(); ++k) {
    const double value = dice() * kMost.at(k);
    const bool is_one_of_some = dice.falls(kPart);
    const bool is_there = present == Present::kAll || (present == Present::kSome && is_one_of_some) ||
                          (present == Present::kOne && k == only);
    if (is_there) values.at(k) = value;
  }
  const auto& [rx, ry, rz, focal, row, by, bz, k1] = values;
  return {rx, ry, rz, focal, row, by, bz, k1};
}

SeenScene sceneOf(const SetKind& kind, std::uint64_t number, Dice& dice) {
  SeenScene scene(kModels.at(number % kModels.size()));
  scene.board.rows = 9;
  scene.board.cols = 13;
  scene.board.step = 45.0;
  scene.misalignment = misalignmentOf(kind.present, dice);
  if (kind.errors == Errors::kSingle) {
    scene.noise = OwnErrors(0.005, number);
  } else {
    scene.noise = SharedErrors(0.02, number);
  }
  return scene;
}

std::vector<scene::PoseWish> posesOf(std::uint64_t number, Dice& dice) {
  std::vector<scene::PoseWish> wishes;
  for (std::uint64_t k = 0; k <= number / kModels.size() % kMostPairs; ++k)
    wishes.push_back({25.0 * dice(), 25.0 * dice(), 20.0 * dice(), 0.75 + 0.2 * dice()});
  return wishes;
}

void addOutliers(SeenSet& seen, Dice& dice) {
  constexpr double kPart = 0.05;
  constexpr double kMost = 3.0;
  for (SeenPair& pair : seen.pairs) {
    for (SeenDot& dot : pair.dots) {
      if (!dice.falls(kPart)) continue;
      dot.right.x += kMost * dice();
      dot.right.y += kMost * dice();
    }
  }
}

}  // namespace

const SetKind& setKind(const std::string& name) {
  const auto* const found = std::ranges::find_if(kSetKinds, [&](const SetKind& kind) { return name == kind.name; });
  if (found == kSetKinds.end()) throw std::out_of_range("There are no sets " + name);
  return *found;
}

SimulatedSet::SimulatedSet(const SetKind& kind, std::uint64_t number) : scene(LensModel::kBrownFive) {
  constexpr std::uint64_t kBeyondNumbers = 1'000'000;  // Not the numbers that the centres' errors are seeded with.
  Dice dice(kBeyondNumbers + number);
  scene = sceneOf(kind, number, dice);
  seen = scene.seen(posesOf(number, dice));
  if (kind.has_outliers) addOutliers(seen, dice);
}

}  // namespace causes
