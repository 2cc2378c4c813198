#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <vector>

#include "polarline/api.h"

/// Sets whose truth is known to the last digit: a board, two cameras and light, rendered. The renderer shares no code
/// with the library that judges the sets.
namespace polarline {

/// A scene that has a name.
struct PresetInfo {
  std::string name;
  std::string note;  ///< What it shows, in a line.
};

/// The scenes that have a name.
POLARLINE_API std::vector<PresetInfo> presets();

/// What a caller may change in a scene; what is empty stays the scene's own.
struct SimulateOptions {
  std::optional<int> pairs;           ///< 1 to 1000. With more pairs than the scene file has poses they take turns.
  std::optional<std::uint64_t> seed;  ///< Of the noise. The same seed gives the same pictures to the byte.
  std::optional<double> noise;        ///< Read noise, greys of an 8-bit picture, 0 to 255; 0 takes all noise away.
  bool force = false;                 ///< Write into a folder that is not empty; files of other names stay there.
  std::string scratch;  ///< An empty folder on the device of the set's, to write in first; empty: one beside the set.
  /// Called after each pair with the pairs done and all pairs. What it throws ends the simulation.
  std::function<void(std::size_t, std::size_t)> progress;
};

/// A set in memory. The texts are those of the files of the same names.
struct Simulated {
  std::string name;                  ///< Of the scene.
  std::vector<cv::Mat> left, right;  ///< One a pair; CV_8UC1, CV_16UC1, CV_8UC3 or CV_16UC3, as the scene says.
  std::string polar;                 ///< polar.txt
  std::string target;                ///< target.ini
  std::string calibration;           ///< calib.json; empty for polynomial cameras, which JSON cannot hold.
  std::vector<std::uint8_t> binary;  ///< calib.bin
  std::string board;                 ///< board_gt.txt
  std::string rectified;             ///< rectified.txt; empty unless the pairs need no rectification.
  std::string truth;                 ///< truth.json
};

/// A set that was written.
struct SimulatedSet {
  std::string name;    ///< Of the scene.
  std::string scene;   ///< As it was named: a preset or a file.
  std::string folder;  ///< As it was named.
  std::size_t pairs = 0;
  std::uint64_t seed = 0;
};

/// Renders a scene, the name of a preset or the path of a scene file (docs/formats/scene_file.md), into a set:
/// pictures, polar.txt, target.ini|json|yml, calib.json|bin, board_gt.txt, list.txt, truth.json, and rectified.txt
/// where it belongs. The folder above must be there. The set appears whole or not at all; with `force` each file does.
/// Throws `InputError` for a scene that can't be used and for a folder that is not empty, `OutputError` where a file
/// can't be written.
POLARLINE_API SimulatedSet simulate(const std::string& scene, const std::string& folder,
                                    const SimulateOptions& options = {});

/// "ring_320: 2 pairs in my_set", a line.
POLARLINE_API std::string simulatedText(const SimulatedSet& set);

/// A set that was written as one JSON object, `schema` "polarline-simulate/1"
/// (docs/schema/polarline-simulate-1.schema.json).
POLARLINE_API std::string simulatedJson(const SimulatedSet& set);

/// The scenes that have a name, a line each.
POLARLINE_API std::string presetsText();

/// The same as one JSON object, `schema` "polarline-presets/1" (docs/schema/polarline-presets-1.schema.json).
POLARLINE_API std::string presetsJson();

/// A set in memory; `force` and `scratch` have no effect. Throws `InputError`.
POLARLINE_API Simulated simulateImages(const std::string& scene, const SimulateOptions& options = {});

/// A preset or scene file as a scene file that tells everything and makes the same set to the byte. Throws
/// `InputError`.
POLARLINE_API std::string sceneFile(const std::string& scene, const SimulateOptions& options = {});

/// What a library without any error would measure of a pair by the calibration given, of the dots that are drawn and
/// wholly in both pictures. Named as the figures of the record are.
struct TrueFigures {
  std::size_t points = 0;
  double dy_means = 0.0;  ///< Of the absolute row differences, pixels.
  double dy_min = 0.0;
  double dy_max = 0.0;
  double zero_dis = 0.0;            ///< Mean distance of the dots from the left camera, board unit.
  std::array<double, 6> pol_dis{};  ///< Measured less true length between the four points of the polar configuration:
                                    ///< 1-2, 1-3, 2-4, 3-4, 1-4, 2-3; board unit.
};

/// The true figures of a simulated set, one a pair, from its truth.json. Throws `InputError`.
POLARLINE_API std::vector<TrueFigures> truthOf(const std::string& folder);

}  // namespace polarline
