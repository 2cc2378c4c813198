#include "refine/edge/EdgeTable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "refine/edge/DepartureAt.h"
#include "refine/edge/SampledBlur.h"

namespace {

using refine::EdgeModel;
using refine::EdgeTable;

EdgeModel ringModel() {
  EdgeModel model;
  model.outline = {{30.3, 20.6}, 40.0, 3.0, 30.0};
  model.paper = 200.0;
  model.ink = 30.0;
  model.blur = 0.8;
  model.edges = 2;
  model.ratio = {1.0, 0.5};
  model.offset[1] = {0.05, -0.02};
  model.light = {0.002, -0.001};
  model.light_origin = {30.0, 20.0};
  return model;
}

EdgeTable tableOf(const EdgeModel& model) {
  EdgeTable table;
  table.clear({30, 20});
  for (int row = 10; row <= 31; row += 3) {
    for (int column = 21; column <= 40; column += 2) table.add(column, row, 100.0F);
  }
  table.evaluate(model);
  return table;
}

/// The model in double precision, as its text tells it.
double greyOf(const EdgeModel& model, double x, double y) {
  const refine::EdgePlace place = refine::edgePlace(model.outline, x, y);
  double covered = 0.0;
  for (std::size_t k = 0; k < model.edges; ++k) {
    const double t =
        place.along - place.nx * model.offset[k].x - place.ny * model.offset[k].y - model.ratio[k] * place.reach;
    covered += (k % 2 == 0 ? 0.5 : -0.5) * std::erfc(t / model.blur / std::numbers::sqrt2);
  }
  const double light = 1.0 + model.light.x * (x - model.light_origin.x) + model.light.y * (y - model.light_origin.y);
  return light * (model.paper + (model.ink - model.paper) * covered);
}

TEST(EdgeTableGrey, IsThatOfTheBlurredMark) {
  const EdgeModel model = ringModel();
  const EdgeTable table = tableOf(model);
  ASSERT_EQ(table.size(), 80);
  for (Eigen::Index i = 0; i < table.size(); ++i) {
    const cv::Point pixel = table.pixel(i);
    EXPECT_NEAR(table.modelGrey()(i), greyOf(model, pixel.x, pixel.y), 2e-3) << pixel;
  }
}

/// The unknowns by number, moved by a step.
EdgeModel moved(EdgeModel model, Eigen::Index unknown, double step) {
  double* const places[] = {&model.outline.centre.x,
                            &model.outline.centre.y,
                            &model.outline.xx,
                            &model.outline.xy,
                            &model.outline.yy,
                            &model.paper,
                            &model.ink,
                            &model.blur,
                            &model.ratio[1]};
  *places[unknown] += step;
  return model;
}

TEST(EdgeTableSlopes, AreTheDifferencesOfTheGrey) {
  const EdgeModel model = ringModel();
  const EdgeTable table = tableOf(model);
  constexpr double kStep = 1e-4;
  for (Eigen::Index unknown = 0; unknown < 9; ++unknown) {
    // A turn of the normal with the outline is of second order near the edge and left out.
    const double tolerance = 0.06 * table.slopes(9).col(unknown).cwiseAbs().maxCoeff();
    for (Eigen::Index i = 0; i < table.size(); ++i) {
      const cv::Point pixel = table.pixel(i);
      const double more = greyOf(moved(model, unknown, kStep), pixel.x, pixel.y);
      const double less = greyOf(moved(model, unknown, -kStep), pixel.x, pixel.y);
      EXPECT_NEAR(table.slopes(9)(i, unknown), (more - less) / (2.0 * kStep), tolerance) << unknown << " " << pixel;
    }
  }
}

TEST(EdgeTableDistance, IsThatFromTheNearestEdge) {
  EdgeModel model;
  model.outline = {{0.0, 0.0}, 100.0, 0.0, 100.0};
  model.edges = 2;
  model.ratio = {1.0, 0.5};
  EdgeTable table;
  table.clear({0, 0});
  table.add(12, 0, 0.0F);
  table.add(0, 6, 0.0F);
  table.add(-3, 0, 0.0F);
  table.evaluate(model);
  EXPECT_NEAR(table.distance()(0), 2.0, 1e-5);
  EXPECT_NEAR(table.distance()(1), 1.0, 1e-5);
  EXPECT_NEAR(table.distance()(2), -2.0, 1e-5);
}

TEST(EdgeTableGrey, HasWhatAFilterBehindThePixelsAddsAtEachEdge) {
  const EdgeModel model = ringModel();
  EdgeTable table = tableOf(model);
  const Eigen::ArrayXf smooth = table.modelGrey();
  const refine::EdgeDeparture sampled = refine::sampledBlur(model.blur, 6.0);
  table.evaluate(model, &sampled);
  for (Eigen::Index i = 0; i < table.size(); ++i) {
    const cv::Point pixel = table.pixel(i);
    const refine::EdgePlace place = refine::edgePlace(model.outline, pixel.x, pixel.y);
    const auto nx = static_cast<float>(place.nx), ny = static_cast<float>(place.ny);
    const double inner = place.along - place.nx * 0.05 + place.ny * 0.02 - 0.5 * place.reach;
    const double share = static_cast<double>(departureAt(sampled, static_cast<float>(place.outside()), nx, ny)) -
                         departureAt(sampled, static_cast<float>(inner), nx, ny);
    const double light = 1.0 + 0.002 * (pixel.x - 30.0) - 0.001 * (pixel.y - 20.0);
    EXPECT_NEAR(table.modelGrey()(i) - smooth(i), light * (30.0 - 200.0) * share, 5e-3) << pixel;
  }
}

TEST(EdgeTablePixels, StayWhenTheMemoryGrows) {
  EdgeTable table;
  table.clear({0, 0});
  for (int k = 0; k < 5000; ++k) table.add(k % 100, k / 100, static_cast<float>(k));
  for (Eigen::Index i = 0; i < 5000; ++i) ASSERT_EQ(table.grey()(i), static_cast<float>(i));
}

}  // namespace
