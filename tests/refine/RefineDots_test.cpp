#include "refine/RefineDots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tools/accuracy/Sight.h"
#include "tools/scene/Presets.h"

namespace {

using polarline::DotState;

const accuracy::Sight& smallSight() {
  static const accuracy::Sight sight = accuracy::sightOf(*scene::makePreset("ring_320"), 0, false);
  return sight;
}

RefinedPicture refined(const cv::Mat& picture, const std::vector<DotPlace>& places) {
  return refineDots(picture, places, accuracy::calibratedCamera(smallSight().camera));
}

TEST(RefineDotsOrder, IsThatOfThePlaces) {
  auto places = accuracy::nearTruePlaces(smallSight(), 0.3);
  std::reverse(places.begin(), places.end());
  const RefinedPicture result = refined(smallSight().picture, places);
  ASSERT_EQ(result.dots.size(), places.size());
  for (std::size_t k = 0; k < places.size(); ++k) EXPECT_EQ(result.dots[k].id, places[k].id);
}

TEST(RefineDotsResult, RepeatsToTheLastBit) {
  const auto places = accuracy::nearTruePlaces(smallSight(), 0.3);
  const RefinedPicture once = refined(smallSight().picture, places), again = refined(smallSight().picture, places);
  for (std::size_t k = 0; k < places.size(); ++k) {
    EXPECT_EQ(once.dots[k].x, again.dots[k].x);
    EXPECT_EQ(once.dots[k].y, again.dots[k].y);
  }
}

TEST(RefineDotsCovered, KeepTheirPlaceAndSaySo) {
  const auto places = accuracy::nearTruePlaces(smallSight(), 0.3);
  cv::Mat picture = smallSight().picture.clone();
  // Through the middles of a column of dots.
  const cv::Rect bar(static_cast<int>(places[places.size() / 2].pixel.x) - 2, 0, 5, picture.rows);
  picture(bar).setTo(120);
  const RefinedPicture result = refined(picture, places);
  int covered = 0;
  for (std::size_t k = 0; k < places.size(); ++k) {
    const accuracy::TrueDot& truth = smallSight().dots.at(static_cast<std::size_t>(places[k].id));
    const double left = truth.centre.x - truth.radius, right = truth.centre.x + truth.radius;
    const bool hit = left < bar.x + 4.0 && right > bar.x;
    if (hit && left < bar.x - 1.0 && right > bar.x + 5.0) {
      ++covered;
      EXPECT_NE(result.dots[k].state, DotState::kRefined) << places[k].id;
    }
    if (result.dots[k].state != DotState::kRefined) {
      EXPECT_EQ(result.dots[k].x, places[k].pixel.x);
      EXPECT_TRUE(std::isnan(result.dots[k].xx));
    } else {
      EXPECT_LT(std::hypot(result.dots[k].x - truth.centre.x, result.dots[k].y - truth.centre.y), 0.06) << places[k].id;
    }
  }
  EXPECT_EQ(covered, 3);  // The bar is narrower than a dot and crosses these three whole.
}

TEST(RefineDotsClipped, AreThoseAtTheBorder) {
  const auto places = accuracy::nearTruePlaces(smallSight(), 0.3);
  const cv::Point2d cut = places.front().pixel;
  const cv::Mat picture = smallSight().picture(cv::Range::all(), {static_cast<int>(cut.x), smallSight().picture.cols});
  auto moved = places;
  for (DotPlace& place : moved) place.pixel.x -= static_cast<int>(cut.x);
  EXPECT_EQ(refined(picture, {moved.front()}).dots[0].state == DotState::kRefined, false);
}

TEST(RefineDotsPose, IsNoneWithoutPlacesOnTheBoard) {
  auto places = accuracy::nearTruePlaces(smallSight(), 0.3);
  for (DotPlace& place : places) place.board.reset();
  const RefinedPicture result = refined(smallSight().picture, places);
  EXPECT_FALSE(result.pose);
  const auto count = std::count_if(result.dots.begin(), result.dots.end(),
                                   [](const auto& dot) { return dot.state == DotState::kRefined; });
  EXPECT_GT(count, static_cast<std::ptrdiff_t>(places.size() * 9 / 10));
}

TEST(RefineDotsResult, OfNoPlacesIsEmpty) { EXPECT_TRUE(refined(smallSight().picture, {}).dots.empty()); }

}  // namespace
