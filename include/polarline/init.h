#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "polarline/api.h"
#include "polarline/calibration.h"
#include "polarline/warning.h"

/// From pictures, a calibration and a board to a set that can be checked.
namespace polarline {

/// How the pictures of the two sides are paired.
enum class PairBy {
  kAuto,    ///< By names, then by time stamps; by order where the numbers differ by one amount throughout.
  kNames,   ///< By the part of the names that varies.
  kStamps,  ///< By their last number, where partners differ by less than half the least spacing of a side.
  kOrder    ///< The first with the first, in natural order. Wants as many left pictures as right ones.
};

/// "auto", "names", "stamps" or "order". Throws `InputError` for any other text.
POLARLINE_API PairBy pairByOf(const std::string& text);

/// What a set is made of. Paths are narrow strings as the system has them.
struct InitRequest {
  std::string folder;  ///< Of the set; it is made, and those above it.
  /// Pictures, folders of them, or patterns with `*`, `?`, `[a-c]` and `**`.
  std::vector<std::string> left;
  std::vector<std::string> right;
  std::string board;                     ///< In the words of `parseBoard`.
  std::vector<std::string> calibration;  ///< Files of any tool that `importCalibration` knows, or our own binary file.
  ImportOptions import;                  ///< What the calibration's files do not say.
  PairBy pairing = PairBy::kAuto;
  std::vector<std::string> limits;  ///< "FIGURE OP VALUE" each, for `limits.txt`; none: no such file.
  bool copy = false;                ///< Copy the pictures into the set; without it they are named where they are.
  bool force = false;               ///< Replace the files of a set that is there.
  /// Told how many pictures have been looked at, of how many; may be empty.
  std::function<void(std::size_t done, std::size_t all)> progress;
};

/// A pair of the set.
struct InitPair {
  std::string left;  ///< As it was found.
  std::string right;
  std::string listed_left;  ///< As the list names it.
  std::string listed_right;
};

/// What the detector saw in one picture of the first pair.
struct InitDetection {
  std::size_t found = 0;    ///< Numbered dots.
  double dot_radius = 0.0;  ///< Of the smallest twentieth of the plain dots, pixels; 0: not known.
  int columns = 0;          ///< Of dots, counted in the picture; 0: too few to count.
  int rows = 0;
};

/// A set that was made, and how.
struct MadeSet {
  std::string folder;
  std::vector<std::string> files;  ///< Names of the files that were written, links and copies of pictures among them.
  std::vector<InitPair> pairs;
  std::vector<std::string> alone_left;  ///< Pictures without a partner: not in the set.
  std::vector<std::string> alone_right;
  Size picture;              ///< Of every picture.
  int channels = 0;          ///< Of every picture.
  int bits = 0;              ///< 8 or 16, of every channel.
  std::string board;         ///< In the words of `boardText`.
  std::size_t expected = 0;  ///< Dots that a good picture of the whole board gives.
  InitDetection left;        ///< Of the first pair.
  InitDetection right;
  int type = 0;                    ///< Lens model, as in the polar configuration.
  std::string model;               ///< The same in words.
  std::string calibration_format;  ///< A name of `ImportOptions::format`, or "binary" for our own binary file.
  double baseline = 0.0;           ///< Length of the way between the cameras, board unit.
  std::vector<int> corners;        ///< Ids of the four chosen points: upper left, upper right, lower left, lower right.
  std::vector<std::string> guesses;  ///< What nobody said and was decided, a sentence each.
  std::vector<Warning> warnings;
  std::string next;  ///< The command that checks the set.
};

/// Makes a set: `polar.txt`, `target.ini`, `calib.json` or `calib.bin`, `list.txt`, `board_gt.txt` and, where limits
/// are asked for, `limits.txt`. A new folder appears whole or not at all; in a folder that is there every file does,
/// and nothing else in it is touched.
///
/// Throws `InputError` for a side without pictures, a picture that does not decode (each is named), pictures of
/// different sizes or kinds (those that differ are named), a size that is not the calibration's, a board that
/// `parseBoard` refuses, a limit that `requireLimit` refuses, and, without `force`, for files that are there;
/// `OutputError` where the set can't be written.
POLARLINE_API MadeSet initSet(const InitRequest& request);

/// The result as one JSON object, `schema` "polarline-init/1".
POLARLINE_API std::string initJson(const MadeSet& set);

/// The result in lines for people, without the last line's end.
POLARLINE_API std::string initText(const MadeSet& set);

}  // namespace polarline
