#pragma once

#include <cstdint>
#include <tuple>
#include <type_traits>

#include "input/PolarConfig.h"

/// The one list of the keys of the polar configuration. A new key is a field of `PolarConfig` and an entry here: the
/// reader walks this list, and so does whatever writes or shows a configuration.
namespace polar_keys {

/// What a key belongs to, in the order in which a reader of the text looks for it.
enum class Group : std::uint8_t { kGeneral, kRawPair, kRectifiedPair, kFrame };

/// What the reader makes of a key besides reading its value.
enum class Rule : std::uint8_t {
  kPlain,
  kThreeNumbers,  ///< Where the key is present it must give exactly three numbers, or the reading stops there.
  kOnIfAbsent,    ///< A text without the key switches it on, whatever the record held.
};

/// One key; `Field` is its field of `PolarConfig`.
template <auto Field>
struct Key {
  using Value = std::remove_cvref_t<decltype(PolarConfig{}.*Field)>;

  const char* name;
  const char* unit;    ///< Empty for what has none.
  const char* values;  ///< What may be written: range, and what the values stand for.
  const char* meaning;
  Group group = Group::kGeneral;
  Rule rule = Rule::kPlain;

  static const Value& valueIn(const PolarConfig& config) { return config.*Field; }
  static Value& valueIn(PolarConfig& config) { return config.*Field; }
};

namespace units {
inline constexpr const char* kPixels = "pixels";
inline constexpr const char* kBoard = "board unit";
inline constexpr const char* kNone = "";
}  // namespace units

/// Switches differ in what they take for on.
namespace values {
inline constexpr const char* kSwitch = "0 off, any other number on";
inline constexpr const char* kOne = "1 on, any other number off";
inline constexpr const char* kId = "0 up to the board's dots less 1: row * columns + column";
inline constexpr const char* kPoint = "[x,y,z]";
inline constexpr const char* kLimit = "0 or more";
}  // namespace values

using C = PolarConfig;

/// The dot of a four-point evaluation.
template <auto Field>
constexpr Key<Field> dot(const char* name, const char* meaning, Group group) {
  return {name, units::kNone, values::kId, meaning, group};
}

/// The true position of such a dot.
template <auto Field>
constexpr Key<Field> truth(const char* name, const char* meaning, Group group) {
  return {name, units::kBoard, values::kPoint, meaning, group, Rule::kThreeNumbers};
}

/// In the order in which they are read: what stands behind a key at which the reading stops keeps its value.
inline constexpr std::tuple kKeys{
    Key<&C::type>{"type", units::kNone, "0 Brown K1 to K3, 1 Brown K1 to K6, 2 fisheye, 3 POLY tables", "Lens model"},
    Key<&C::x_y>{"x_y", units::kNone, "0 as they are, 1 turned",
                 "Turn both rectified pictures a quarter clockwise before their rows are compared"},
    Key<&C::f_scale>{"f_scale", units::kNone, "above 0; exactly 1 is a rectification of its own kind",
                     "Focal length of the rectified pair by the larger one of the cameras"},
    Key<&C::evaluation>{"evaluation", units::kNone, "1 written, any other number not", "The summary file of the run"},
    Key<&C::savepolarline>{"savepolarline", units::kNone, values::kSwitch,
                           "Save each rectified pair and its picture with polar lines"},
    Key<&C::evalu_model>{"evalu_model", units::kNone, "0 full measurement, 1 detection only",
                         "How a pair is measured; with another number nothing is"},
    Key<&C::crop>{"crop", units::kNone, values::kSwitch, "Cut the middle out of every picture"},
    Key<&C::cropped_cols>{"cropped_cols", units::kPixels, "1 up to the picture's width", "Width of the crop"},
    Key<&C::cropped_rows>{"cropped_rows", units::kPixels, "1 up to the picture's height", "Height of the crop"},
    Key<&C::allpoints_calc_switch>{"allpoints_calc_switch", units::kNone, values::kOne,
                                   "Spacing of all neighbours in the point cloud, where there is a cloud",
                                   Group::kRectifiedPair},
    Key<&C::pattern_rows>{"pattern_rows", units::kNone, "any", "Rows of the board: read, but without effect",
                          Group::kRectifiedPair},
    Key<&C::pattern_cols>{"pattern_cols", units::kNone, "the board's columns",
                          "Dots in a row of the board: the neighbour below has an id higher by this",
                          Group::kRectifiedPair},
    Key<&C::pattern_step>{"pattern_step", units::kBoard, "above 0",
                          "True spacing against which that of the point cloud is judged", Group::kRectifiedPair},
    Key<&C::triangulate_residual_switch>{"triangulate_residual_switch", units::kNone, values::kSwitch,
                                         "Residuals: how far each triangulated dot projects from its place in the "
                                         "right picture",
                                         Group::kRawPair},
    Key<&C::triangulate_dis_switch>{"triangulate_dis_switch", units::kNone, values::kSwitch,
                                    "Errors of the six distances among the four triangulated TriPoints",
                                    Group::kRawPair},
    Key<&C::eccentricity>{"eccentricity", units::kNone, values::kSwitch,
                          "Compensate that the middle of a dot's outline is not the picture of its centre"},
    Key<&C::discalswitch>{"discalswitch", units::kNone, values::kSwitch,
                          "Distances of all dots against the board, and the board fitted onto them; needs the true "
                          "positions of 31 dots or more",
                          Group::kRawPair},
    Key<&C::discalsave>{"discalsave", units::kNone, values::kSwitch,
                        "Tables of the distances and of the board check; a triangulation that fails then ends the run",
                        Group::kRawPair},
    dot<&C::TriPoint1_ID>("TriPoint1_ID", "Dot 1 of the raw pair, upper left", Group::kRawPair),
    dot<&C::TriPoint2_ID>("TriPoint2_ID", "Dot 2 of the raw pair, upper right", Group::kRawPair),
    dot<&C::TriPoint3_ID>("TriPoint3_ID", "Dot 3 of the raw pair, lower left", Group::kRawPair),
    dot<&C::TriPoint4_ID>("TriPoint4_ID", "Dot 4 of the raw pair, lower right", Group::kRawPair),
    truth<&C::TriPoint1_GT>("TriPoint1_GT", "True position of dot 1 of the raw pair", Group::kRawPair),
    truth<&C::TriPoint2_GT>("TriPoint2_GT", "True position of dot 2 of the raw pair", Group::kRawPair),
    truth<&C::TriPoint3_GT>("TriPoint3_GT", "True position of dot 3 of the raw pair", Group::kRawPair),
    truth<&C::TriPoint4_GT>("TriPoint4_GT", "True position of dot 4 of the raw pair", Group::kRawPair),
    Key<&C::tri_bias_savepng_swithch>{"tri_bias_savepng_swithch", units::kNone, values::kOne,
                                      "Picture of the right image; it is clean, as marks are drawn only at 0",
                                      Group::kRawPair},
    Key<&C::tri_bias_divid>{"tri_bias_divid", units::kPixels, values::kLimit,
                            "Limit of a residual; only a share that no output shows depends on it", Group::kRawPair},
    Key<&C::tir_bias_savecsv_swithch>{"tir_bias_savecsv_swithch", units::kNone, values::kOne, "Table of the residuals",
                                      Group::kRawPair},
    Key<&C::dy_bias_switch>{"dy_bias_switch", units::kNone, values::kSwitch, "Row differences of the rectified pair",
                            Group::kRectifiedPair},
    Key<&C::dy_bias_divid>{"dy_bias_divid", units::kPixels, values::kLimit,
                           "Limit of a row difference: dots above it are counted, arrows below it are green",
                           Group::kRectifiedPair},
    Key<&C::dy_bias_savecsv_swithch>{"dy_bias_savecsv_swithch", units::kNone, values::kOne,
                                     "Table of the row differences", Group::kRectifiedPair},
    Key<&C::dy_bias_savepng_swithch>{"dy_bias_savepng_swithch", units::kNone, values::kOne,
                                     "Picture of the row differences, and the share above the limit in the summary",
                                     Group::kRectifiedPair},
    Key<&C::allpointssavecsv_swithch>{
        "allpointssavecsv_swithch", units::kNone, "0 off, 1 cloud and table, any other number the cloud alone",
        "Point cloud of a pair that is rectified anyway, and its table", Group::kRectifiedPair},
    Key<&C::foursixmethod_swithch>{
        "foursixmethod_swithch", units::kNone, "0 off, 1 cloud and distances, any other number the cloud alone",
        "Point cloud, and errors of the six distances among its four PolPoints", Group::kRectifiedPair},
    dot<&C::PolPoint1_ID>("PolPoint1_ID", "Dot 1 of the point cloud, upper left", Group::kRectifiedPair),
    dot<&C::PolPoint2_ID>("PolPoint2_ID", "Dot 2 of the point cloud, upper right", Group::kRectifiedPair),
    dot<&C::PolPoint3_ID>("PolPoint3_ID", "Dot 3 of the point cloud, lower left", Group::kRectifiedPair),
    dot<&C::PolPoint4_ID>("PolPoint4_ID", "Dot 4 of the point cloud, lower right", Group::kRectifiedPair),
    truth<&C::PolPoint1_GT>("PolPoint1_GT", "True position of dot 1 of the point cloud", Group::kRectifiedPair),
    truth<&C::PolPoint2_GT>("PolPoint2_GT", "True position of dot 2 of the point cloud", Group::kRectifiedPair),
    truth<&C::PolPoint3_GT>("PolPoint3_GT", "True position of dot 3 of the point cloud", Group::kRectifiedPair),
    truth<&C::PolPoint4_GT>("PolPoint4_GT", "True position of dot 4 of the point cloud", Group::kRectifiedPair),
    Key<&C::oqc_switch>{"oqc_switch", units::kNone, values::kOne,
                        "Errors of the Cal_ID_DIS distances, of pairs that were rectified elsewhere; in an image set "
                        "only headings of the summary",
                        Group::kRectifiedPair},
    Key<&C::Cal_ID_DIS>{"Cal_ID_DIS", units::kNone, "[[id,id],...], ids of the board", "Pairs of dots of oqc_switch",
                        Group::kRectifiedPair},
    Key<&C::frame_work>{"frame_work", units::kNone, values::kSwitch,
                        "Frame run: a few points at expected pixels in the place of the numbered board", Group::kFrame},
    Key<&C::Frame_3D>{"Frame_3D", units::kBoard, "[[x,y,z],...]", "True position of each frame point, entry id - 1",
                      Group::kFrame},
    Key<&C::Frame_IRL>{"Frame_IRL", units::kPixels, "[[x,y],...]",
                       "Where each frame point is expected in the left picture", Group::kFrame},
    Key<&C::Frame_IRR>{"Frame_IRR", units::kPixels, "[[x,y],...]",
                       "Where each frame point is expected in the right picture", Group::kFrame},
    Key<&C::Frame_ID_DIS>{"Frame_ID_DIS", units::kNone, "[[place,place],...], places in the lists from 1",
                          "Pairs of frame points whose distance is judged", Group::kFrame},
    Key<&C::Frame_ID>{"Frame_ID", units::kNone, "[id,...], best 1,2,3,...", "Id of each frame point", Group::kFrame},
    Key<&C::spaceRms_switch>{"spaceRms_switch", units::kNone, "0 off, any other number on; on when the key is absent",
                             "Board check: the measured dots fitted onto the board; needs the true positions of 31 "
                             "dots or more",
                             Group::kRawPair, Rule::kOnIfAbsent},
};

/// Calls `visit(key)` for each key in turn, until one call returns false; whether none did.
template <typename Visitor>
bool forEachWhile(const Visitor& visit) {
  return std::apply([&visit](const auto&... key) { return (visit(key) && ...); }, kKeys);
}

/// Calls `visit(key)` for each key in turn.
template <typename Visitor>
void forEach(const Visitor& visit) {
  std::apply([&visit](const auto&... key) { (visit(key), ...); }, kKeys);
}

}  // namespace polar_keys
