#include "polar/results/ResultRow.h"

namespace {

template <typename... Values>
void cells(std::ostream& stream, const Values&... values) {
  ((stream << "," << values), ...);
}

template <typename List>
void cellsOf(std::ostream& stream, const List& list) {
  for (const auto& value : list) cells(stream, value);
}

}  // namespace

void WriteResultRow(PairEvaluator& evaluator, std::ostream& stream, std::size_t index) {
  const PolarConfig& config = evaluator.config();
  stream << "Images_num_: " << index + 1 << "_PolarVersion_: " << kVersion;
  if (config.frame_work != 0) {
    cellsOf(stream, evaluator.frameValues);
    evaluator.frameValues.clear();
    stream << std::endl;
    return;
  }
  if (config.triangulate_residual_switch != 0)
    cells(stream, evaluator.tri_rms, evaluator.tri_mean, evaluator.tri_min, evaluator.tri_max);
  if (config.triangulate_dis_switch != 0) cellsOf(stream, evaluator.tri_dis);
  if (config.dy_bias_switch != 0) cells(stream, evaluator.dy_means, evaluator.dy_min, evaluator.dy_max);
  if (config.dy_bias_savepng_swithch != 0) cells(stream, evaluator.dy_ratio);
  if (config.allpoints_calc_switch != 0)
    cells(stream, evaluator.allpoints_means, evaluator.allpoints_min, evaluator.allpoint_max);
  if (config.foursixmethod_swithch != 0) cellsOf(stream, evaluator.pol_dis);
  if (config.oqc_switch != 0) cellsOf(stream, evaluator.id_dis);
  if (config.spaceRms_switch) cells(stream, evaluator.space_rms);
  stream << std::endl;
}
