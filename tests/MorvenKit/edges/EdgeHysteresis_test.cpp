#include "MorvenKit/src/edges/EdgeHysteresis.h"

#include <gtest/gtest.h>

using kestrune::morvenkit::edgeHysteresis;

namespace {

/// Pixels from a text: '.' no ridge, '0' too weak, 'w' weak, 'S' strong, 'x' strong but no ridge.
struct Picture {
  cv::Mat_<uchar> ridges;
  cv::Mat_<float> magnitude;

  explicit Picture(const std::vector<std::string>& rows)
      : ridges(static_cast<int>(rows.size()), static_cast<int>(rows[0].size()), uchar{0}),
        magnitude(ridges.size(), 0.0F) {
    for (int y = 0; y < ridges.rows; ++y) {
      for (int x = 0; x < ridges.cols; ++x) {
        const char c = rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
        if (c != '.' && c != 'x') ridges(y, x) = 255;
        magnitude(y, x) = c == 'S' || c == 'x' ? 0.75F : c == 'w' ? 0.5F : 0.25F;
      }
    }
  }
  std::vector<std::string> kept(double low = 0.25, double high = 0.5) const {
    const cv::Mat_<uchar> result = edgeHysteresis(ridges, magnitude, low, high);
    std::vector<std::string> rows;
    for (int y = 0; y < result.rows; ++y) {
      rows.emplace_back();
      for (int x = 0; x < result.cols; ++x) rows.back() += result(y, x) == 255 ? '#' : '.';
    }
    return rows;
  }
};

using Rows = std::vector<std::string>;

}  // namespace

TEST(EdgeHysteresis, WeakHangsOnStrong) { EXPECT_EQ(Picture({"Sww.ww", "......"}).kept(), (Rows{"###...", "......"})); }

TEST(EdgeHysteresis, EightNeighbours) {
  EXPECT_EQ(Picture({"w...w", ".w.w.", "..S..", ".w.w.", "w...w"}).kept(),
            (Rows{"#...#", ".#.#.", "..#..", ".#.#.", "#...#"}));
}

TEST(EdgeHysteresis, WithoutStrongNothingStays) { EXPECT_EQ(Picture({"wwww", "wwww"}).kept(), (Rows{"....", "...."})); }

TEST(EdgeHysteresis, StrongWithoutARidgeIsNothing) {
  EXPECT_EQ(Picture({"xww.", "...S"}).kept(), (Rows{".##.", "...#"}));
}

TEST(EdgeHysteresis, LimitsAreExclusive) {
  // '0' is just at the low limit, 'w' just at the high one.
  EXPECT_EQ(Picture({"S0ww"}).kept(0.25, 0.5), (Rows{"#..."}));
  EXPECT_EQ(Picture({"S0ww"}).kept(0.2499, 0.5), (Rows{"####"}));
  EXPECT_EQ(Picture({"..ww"}).kept(0.25, 0.4999), (Rows{"..##"}));
}

TEST(EdgeHysteresis, LinesDoNotGoOnAroundTheEdge) {
  EXPECT_EQ(Picture({"..S", "w..", "..."}).kept(), (Rows{"..#", "...", "..."}));
}
