#include "diagnose/uncertainty/NoiseBlocks.h"

#include <algorithm>

namespace {

constexpr int kBlock = 3;

std::vector<std::int32_t> idsOf(const CentreNoise& noise) {
  std::vector<std::int32_t> ids;
  ids.reserve(noise.size());
  for (const auto& [id, centre] : noise) ids.push_back(id);
  return ids;
}

Eigen::Matrix2Xd shiftsOf(const CentreNoise& noise) {
  Eigen::Matrix2Xd shifts(2, static_cast<Eigen::Index>(noise.size()));
  Eigen::Index dot = 0;
  for (const auto& [id, centre] : noise) shifts.col(dot++) = Eigen::Vector2d(centre.shift[0], centre.shift[1]);
  return shifts;
}

/// Where a block is taken from, and its sign.
struct Source {
  int row = 0;
  int column = 0;
  double sign = 0.0;  ///< 0: not drawn yet.
};

}  // namespace

NoiseBlocks::NoiseBlocks(const CentreNoise& noise, int columns)
    : shifts_(shiftsOf(noise)),
      grid_(idsOf(noise), columns),
      covariance_(shifts_.lazyProduct(shifts_.transpose()) / static_cast<double>(shifts_.cols())) {}

void NoiseBlocks::draw(const BoardGrid& grid, SeededRandom& random, Eigen::Matrix2Xd& shifts) const {
  int rows = 0;
  int columns = 0;
  for (std::size_t dot = 0; dot < grid.count(); ++dot) {
    rows = std::max(rows, grid.row(dot) / kBlock + 1);
    columns = std::max(columns, grid.column(dot) / kBlock + 1);
  }
  std::vector<Source> sources(static_cast<std::size_t>(rows) * static_cast<std::size_t>(columns));
  shifts.resize(2, static_cast<Eigen::Index>(grid.count()));
  for (std::size_t dot = 0; dot < grid.count(); ++dot) {
    Source& source = sources[static_cast<std::size_t>(grid.row(dot) / kBlock) * static_cast<std::size_t>(columns) +
                             static_cast<std::size_t>(grid.column(dot) / kBlock)];
    if (source.sign == 0.0) {
      const std::size_t middle = random.below(grid_.count());
      source = {grid_.row(middle) - 1, grid_.column(middle) - 1, random.sign()};
    }
    const auto found = grid_.at(source.row + grid.row(dot) % kBlock, source.column + grid.column(dot) % kBlock);
    const std::size_t taken = found ? *found : random.below(grid_.count());
    shifts.col(static_cast<Eigen::Index>(dot)) = source.sign * shifts_.col(static_cast<Eigen::Index>(taken));
  }
}
