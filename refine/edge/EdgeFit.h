#pragma once

#include <optional>
#include <vector>

#include "refine/edge/EdgeDeparture.h"
#include "refine/edge/EdgeModel.h"
#include "refine/edge/EdgeTable.h"
#include "refine/edge/NoiseLevel.h"

namespace refine {

/// Squared residuals of some pixels.
struct ZoneResidual {
  double squares = 0.0;
  int count = 0;
};

/// The model that comes nearest to a mark's pixels.
struct EdgeFit {
  EdgeModel model;
  cv::Matx22d covariance;   ///< Of the centre, square pixels, from the noise of the pixels.
  ZoneResidual paper, ink;  ///< Away from the edges, squared greys.
  ZoneResidual edge;        ///< On them, in variances of the noise.
  int outliers = 0;         ///< On the edges, far beyond the noise.
  int on_edge = 0;          ///< All pixels on them that were used.
};

/// What a fit starts from and works in.
struct EdgeFitting {
  std::optional<NoiseLevel> noise;        ///< None: the scale is that of the median residual on the edge (Huber 1981).
  const EdgeDeparture* beside = nullptr;  ///< What the edges of the picture have beside the smooth one.
  EdgeTable table;                        ///< The pixels.
  EdgeTable some;                         ///< Some of them, for the first step.
  Eigen::ArrayXf residuals, weights;
  Eigen::ArrayX3f zones;  ///< Squared residuals on the edges, and beside them brighter and darker than their middle.
  std::vector<float> sorted;
};

/// Fits a model to the table's pixels by the method of Gauss and Newton, every pixel weighted by the inverse of its
/// variance and by Tukey's biweight (Beaton and Tukey 1974), so that what lies over the mark does not pull. With
/// Gaussian noise this is the maximum of the likelihood, and the covariance, the inverse of the normal matrix, is the
/// Cramer-Rao bound. None where the pixels do not determine the model.
std::optional<EdgeFit> fitEdge(const EdgeModel& start, EdgeFitting& work);

}  // namespace refine
