#include "diagnose/uncertainty/NoiseBlocks.h"

#include <algorithm>
#include <cmath>

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
      covariance_(shifts_.lazyProduct(shifts_.transpose()) / static_cast<double>(shifts_.cols())),
      levels_(grid_, shifts_) {
  const double seen = shifts_.squaredNorm();
  for (std::size_t dot = 0; dot < grid_.count(); ++dot)
    shifts_.col(static_cast<Eigen::Index>(dot)) /= levels_.at(grid_.row(dot), grid_.column(dot));
  // So that all dots together draw as much noise as they have.
  if (seen > 0.0) shifts_ *= std::sqrt(seen / shifts_.squaredNorm());
}

BlockLayout::BlockLayout(const BoardGrid& grid) {
  int columns = 0;
  for (std::size_t dot = 0; dot < grid.count(); ++dot) columns = std::max(columns, grid.column(dot) / kBlock + 1);
  dots.reserve(grid.count());
  for (std::size_t dot = 0; dot < grid.count(); ++dot) {
    const int row = grid.row(dot);
    const int column = grid.column(dot);
    const auto block = static_cast<std::uint32_t>(row / kBlock * columns + column / kBlock);
    dots.push_back({block, row, column});
    blocks = std::max<std::size_t>(blocks, block + 1);
  }
}

void NoiseBlocks::draw(const BlockLayout& layout, SeededRandom& random, Eigen::Matrix2Xd& shifts) const {
  std::vector<Source> sources(layout.blocks);
  shifts.resize(2, static_cast<Eigen::Index>(layout.dots.size()));
  Eigen::Index dot = 0;
  for (const BlockLayout::Place& place : layout.dots) {
    Source& source = sources[place.block];
    if (source.sign == 0.0) {
      const std::size_t middle = random.below(grid_.count());
      source = {grid_.row(middle) - 1, grid_.column(middle) - 1, random.sign()};
    }
    const auto found = grid_.at(source.row + place.row % kBlock, source.column + place.column % kBlock);
    const std::size_t taken = found ? *found : random.below(grid_.count());
    const double size = source.sign * levels_.at(place.row, place.column);
    shifts.col(dot++) = size * shifts_.col(static_cast<Eigen::Index>(taken));
  }
}
