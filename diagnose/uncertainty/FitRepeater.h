#pragma once

#include <Eigen/Core>
#include <vector>

#include "diagnose/uncertainty/DotScene.h"
#include "polar/evaluate/PairEvaluator.h"

/// `icp_x_rms`, `icp_y_rms`, `icp_z_rms`, `icp_nor_rms` and `space_rms`, and `gt_rms` with them: each repetition fits
/// the board anew, by the slope of the fit (Dorst 2005): the small turn w and the shift t that leave least of
/// sum |w x f + t - s|^2, f the fitted dots about their centroid and s the shifts of the seen ones, so
/// (tr(F) 1 - F) w = sum f x s with F = sum f f^T, and t = mean s. Left out is what the residuals of the fit add to
/// the left side, which is as small as they are beside the board.
class FitRepeater final : public FigureRepeater {
 public:
  /// `positions`: of the dots, without noise; `truth`: where they are on the board.
  FitRepeater(const PairEvaluator& evaluator, const DotScene& raw, const Eigen::Matrix3Xd& positions,
              const Eigen::Matrix3Xd& truth);
  void add(const Repetition& repetition) override;

 private:
  void prepareProjection(const PairEvaluator& evaluator, const DotScene& raw, const Eigen::Matrix3Xd& placed);
  void addProjection(const Repetition& repetition);

  bool has_axes_, has_space_, has_projection_;
  Eigen::Matrix3Xd fitted_;    ///< The board about its own centroid, where the fit lays it.
  Eigen::Matrix3Xd residual_;  ///< Of the fit.
  Eigen::Matrix3Xd moved_;     ///< By the fit of a repetition; a member for its memory.
  Eigen::Matrix3d to_turn_;    ///< From the moment of the shifts to the turn of the fit.
  Eigen::Matrix2Xd seen_off_;  ///< Fitted board less seen dot, left pixels, without noise.
  std::vector<Eigen::Matrix<double, 2, 3>> pixel_slope_;
  std::vector<bool> is_projected_;
};
