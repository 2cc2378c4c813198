#pragma once

#include <cstdint>
#include <ostream>
#include <tuple>
#include <type_traits>

#include "PolarLinePrecision/ResultRecords.h"
#include "input/PolarConfig.h"
#include "polar/results/PairFigures.h"

/// The one list of figures. A new figure is a field of `PairFigures`, a field of `PolarResultRecord` if the caller gets
/// it, and an entry here: the record, the summary's header and its rows walk this list.
namespace figure_list {

/// Which summaries have a column for a figure.
enum class Summary : std::uint8_t {
  kNone,
  kPairs,   ///< Image sets and pairs that were rectified elsewhere.
  kFrames,  ///< Frame runs.
};

/// Where a figure stands in the summaries.
struct Column {
  Summary summary = Summary::kNone;
  bool (*is_on)(const PolarConfig&) = nullptr;  ///< The switch of header and row.
  const char* heading = "";                     ///< With the comma in front; some have a blank behind it.
  /// Names a column for each entry of the configuration.
  void (*name_entries)(std::ostream&, const PolarConfig&) = nullptr;
  bool in_rectified_header = true;
};

/// One figure: `Group` is what it is measured with, `Value` is its field of `PairFigures`, `Field` that of
/// `PolarResultRecord`, null for none.
template <FigureGroup Group, auto Value, auto Field = nullptr>
struct Figure {
  static constexpr FigureGroup kGroup = Group;
  static constexpr bool kInRecord = !std::is_null_pointer_v<decltype(Field)>;

  const char* name;
  const char* unit;
  const char* meaning;
  Column column = {};

  static const auto& valueIn(const PairFigures& figures) { return figures.*Value; }
  static auto& valueIn(PairFigures& figures) { return figures.*Value; }
  static auto& fieldOf(PolarResultRecord& record) { return record.*Field; }
};

template <auto Switch>
bool isOn(const PolarConfig& config) {
  return static_cast<bool>(config.*Switch);
}

/// A column of its own behind `heading` while `Switch` is on.
template <auto Switch>
constexpr Column under(const char* heading) {
  return {Summary::kPairs, isOn<Switch>, heading};
}

void nameIdDistances(std::ostream& stream, const PolarConfig& config);
void nameFramePairs(std::ostream& stream, const PolarConfig& config);

namespace units {
inline constexpr const char* kPixels = "pixels";
inline constexpr const char* kBoard = "board unit";
inline constexpr const char* kNone = "1";
}  // namespace units

using F = PairFigures;
using G = FigureGroup;
using R = PolarResultRecord;
using C = PolarConfig;

/// In the order of the summary's columns; behind them what only the record holds.
inline constexpr std::tuple kFigures{
    Figure<G::kResiduals, &F::tri_rms, &R::tri_rms>{"tri_rms", units::kPixels,
                                                    "Root mean square of the reprojection residuals in the right image",
                                                    under<&C::triangulate_residual_switch>(",tri_rms")},
    Figure<G::kResiduals, &F::tri_mean, &R::tri_mean>{"tri_mean", units::kPixels,
                                                      "Mean reprojection residual in the right image",
                                                      under<&C::triangulate_residual_switch>(", tri_mean")},
    Figure<G::kResiduals, &F::tri_min, &R::tri_min>{"tri_min", units::kPixels,
                                                    "Smallest reprojection residual in the right image",
                                                    under<&C::triangulate_residual_switch>(", tri_min")},
    Figure<G::kResiduals, &F::tri_max, &R::tri_max>{"tri_max", units::kPixels,
                                                    "Largest reprojection residual in the right image",
                                                    under<&C::triangulate_residual_switch>(", tri_max")},
    Figure<G::kTriDis, &F::tri_dis, &R::tri_dis>{
        "tri_dis", units::kBoard,
        "Errors of the triangulated distances 1-2, 1-3, 2-4, 3-4, 1-4, 2-3 of the four TriPoints, then the one of "
        "smallest and the one of largest absolute value",
        under<&C::triangulate_dis_switch>(
            ",tri_dis_1_2_err,tri_dis_1_3_err,tri_dis_2_4_err,tri_dis_3_4_err,tri_dis_1_4_err,tri_dis_2_3_err"
            ",tri_dis_err_min,tri_dis_err_max")},
    Figure<G::kRows, &F::dy_means, &R::dy_means>{"dy_means", units::kPixels,
                                                 "Mean absolute row difference after rectification",
                                                 under<&C::dy_bias_switch>(",dy_means")},
    Figure<G::kRows, &F::dy_min, &R::dy_min>{"dy_min", units::kPixels, "Smallest absolute row difference",
                                             under<&C::dy_bias_switch>(", dy_min")},
    Figure<G::kRows, &F::dy_max, &R::dy_max>{"dy_max", units::kPixels, "Largest absolute row difference",
                                             under<&C::dy_bias_switch>(", dy_max")},
    // Under the switch of the picture, not of the row differences: that is meant.
    Figure<G::kRows, &F::dy_ratio>{"dy_ratio", units::kNone,
                                   "Share of points whose row difference is above dy_bias_divid",
                                   under<&C::dy_bias_savepng_swithch>(",dy>bias_divid")},
    Figure<G::kSpacing, &F::allpoints_means>{"allpoints_means", units::kBoard,
                                             "Error of the mean spacing of the point cloud against pattern_step",
                                             under<&C::allpoints_calc_switch>(",allpoints_means")},
    Figure<G::kSpacing, &F::allpoints_min>{"allpoints_min", units::kBoard, "Smallest absolute error of a spacing",
                                           under<&C::allpoints_calc_switch>(",allpoints_min")},
    Figure<G::kSpacing, &F::allpoint_max>{"allpoint_max", units::kBoard, "Largest absolute error of a spacing",
                                          under<&C::allpoints_calc_switch>(",allpoint_max")},
    Figure<G::kPolDis, &F::pol_dis, &R::pol_dis>{
        "pol_dis", units::kBoard, "As tri_dis, for the four PolPoints in the point cloud of the rectified pair",
        under<&C::foursixmethod_swithch>(
            ",pol_dis_1_2_err,pol_dis_1_3_err,pol_dis_2_4_err,pol_dis_3_4_err,pol_dis_1_4_err,pol_dis_2_3_err"
            ",pol_dis_err_min,pol_dis_err_max")},
    // Header and row do not fit in image sets, which is meant: the header names every configured distance, while only
    // pairs that were rectified elsewhere have values.
    Figure<G::kIdDis, &F::id_dis, &R::id_dis>{"id_dis",
                                              units::kBoard,
                                              "Distance error of each Cal_ID_DIS entry",
                                              {Summary::kPairs, isOn<&C::oqc_switch>, "", nameIdDistances}},
    // Header and row do not fit in summaries of pairs that were rectified elsewhere, which is meant: the row has a cell
    // for the figure and the header does not name it.
    Figure<G::kSpace, &F::space_rms, &R::space_rms>{
        "space_rms",
        units::kBoard,
        "Residual of the rigid fit of the measured points onto the board",
        {Summary::kPairs, isOn<&C::spaceRms_switch>, ",space_rms", nullptr, false}},
    Figure<G::kFrame, &F::frameValues, &R::frameValues>{"frameValues",
                                                        units::kBoard,
                                                        "Distance error of each Frame_ID_DIS entry",
                                                        {Summary::kFrames, isOn<&C::frame_work>, "", nameFramePairs}},
    Figure<G::kDistances, &F::dis_rms, &R::dis_rms>{"dis_rms", units::kBoard,
                                                    "Root mean square of all distance errors against the board"},
    Figure<G::kDistances, &F::nor_rms, &R::nor_rms>{
        "nor_rms", units::kNone, "Root mean square of the distance errors divided by the true distances"},
    Figure<G::kDistances, &F::zero_dis, &R::zero_dis>{"zero_dis", units::kBoard,
                                                      "Mean range of the board points from the left camera"},
    Figure<G::kAlignment, &F::icp_x_rms, &R::icp_x_rms>{
        "icp_x_rms", units::kBoard, "Residual of the rigid fit of the board to the measured points along x"},
    Figure<G::kAlignment, &F::icp_y_rms, &R::icp_y_rms>{
        "icp_y_rms", units::kBoard, "Residual of the rigid fit of the board to the measured points along y"},
    Figure<G::kAlignment, &F::icp_z_rms, &R::icp_z_rms>{
        "icp_z_rms", units::kBoard, "Residual of the rigid fit of the board to the measured points along z"},
    Figure<G::kAlignment, &F::icp_nor_rms, &R::icp_nor_rms>{"icp_nor_rms", units::kBoard,
                                                            "Root of the mean squared distance of that fit"},
    Figure<G::kProjection, &F::gt_rms, &R::gt_rms>{"gt_rms", units::kPixels,
                                                   "Reprojection error of the fitted board in the left image"},
    Figure<G::kPose, &F::PoseReport, &R::PoseReport>{
        "PoseReport", "degrees, board unit",
        "Left rotation vector x, y, z and distance of the board's centre, then the same for the right camera"},
    Figure<G::kDistances, &F::pairPoints, &R::pairPoints>{"pairPoints", "", "The shared points, in ascending id"},
    Figure<G::kPicture, &F::detect_canvas, &R::detect_canvas>{"detect_canvas", "",
                                                              "Both images side by side, points marked"},
};

/// Calls `visit(figure)` for each figure of the list.
template <typename Visitor>
void forEach(const Visitor& visit) {
  std::apply([&visit](const auto&... figure) { (visit(figure), ...); }, kFigures);
}

}  // namespace figure_list
