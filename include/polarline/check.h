#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <opencv2/core.hpp>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "polarline/api.h"
#include "polarline/diagnose.h"
#include "polarline/exit_code.h"
#include "polarline/quality.h"
#include "polarline/refine.h"
#include "polarline/set.h"
#include "polarline/uncertainty.h"
#include "polarline/warning.h"

/// Judging a set: a run of the library over its pairs, what the run yields, and whether it keeps its limits. The
/// figures are those of the library's own exports, to the last bit.
namespace polarline {

/// An entry of a list that a limit judges by its number.
struct LimitedEntry {
  std::size_t entry = 0;
  bool exceeds = false;  ///< As `Figure::exceeds`.
};

/// A figure of one pair. Lists (`tri_dis`, `id_dis` and the like) have several values.
struct Figure {
  const char* name = "";
  const char* unit = "";
  const char* meaning = "";
  std::vector<double> values;  ///< Empty unless the pair measured the figure itself.
  bool is_list = false;
  bool is_single = false;             ///< The values came in single precision: they read back to the same float.
  bool is_own = false;                ///< The pair measured it.
  bool is_carried = false;            ///< The library's record repeats the value of an earlier pair.
  bool is_limited = false;            ///< A limit judges it in each pair.
  bool exceeds = false;               ///< The pair is finished, and its value does not keep such a limit.
  bool is_whole_limited = false;      ///< A limit judges the number, or every entry of the list.
  std::vector<LimitedEntry> entries;  ///< Of a list what limits judge one by one.
};

/// The dots that both pictures of a pair show, one entry an id in every list, ascending. What was not measured is not a
/// number.
struct PairPoints {
  std::vector<std::int32_t> id;
  std::vector<float> left_x, left_y, right_x, right_y;  ///< Pixels of the pictures.
  std::vector<float> x, y, z;                           ///< Triangulated: left camera frame, board unit.
  std::vector<float> residual;                          ///< Of the triangulation: pixels of the right picture.
  std::vector<float> rectified_left_x, rectified_left_y, rectified_right_x, rectified_right_y;
  std::vector<float> dy;  ///< Signed row difference of the rectified pair, left less right, pixels.
};

/// The same from refined centres, with what is known of these: pixels of the pictures as the evaluations see them.
struct RefinedPoints : PairPoints {
  std::vector<float> left_sd_x, left_sd_y, right_sd_x, right_sd_y;  ///< Of a centre; none for a dot not refined.
  std::vector<DotState> left_state, right_state;  ///< A dot that was not refined stands where it was detected.
};

/// Why a pair was given up.
struct Reason {
  std::int32_t code = 0;      ///< A status of the library.
  std::string text;           ///< In words.
  std::string side;           ///< "left", "right", or empty where it is both or neither.
  std::string step;           ///< The evaluation or the step of the detection that failed.
  bool of_residuals = false;  ///< The dots were shared, and no residual of theirs could be taken.
  bool of_rectified = false;  ///< The pictures that it is about are the rectified ones, not those of the list.
};

/// A pair once more, from refined centres: the same evaluations of the same dots, but for those that something hides.
struct RefinedPair {
  std::string problem;          ///< Why there are no figures; empty where there are, and for a pair given up.
  std::vector<Figure> figures;  ///< All of the library's, none carried.
  std::size_t refined_left = 0, refined_right = 0;  ///< Dots whose centre could be refined, of each picture.
  std::size_t left_out = 0;  ///< Dots that something hides in one of the pictures: they are not evaluated.
  RefinedPoints points;
  std::vector<FigureUncertainty> uncertainty;  ///< By the covariances of the refined centres.

  /// None for a name that is no figure.
  POLARLINE_API const Figure* figure(const std::string& name) const;
  /// None for a figure that has none, or was not measured.
  POLARLINE_API const FigureUncertainty* uncertaintyOf(const std::string& name) const;
};

/// What a run shows of one pair.
struct PairCheck {
  std::size_t index = 0;  ///< Position in the list, from 0.
  std::string left;       ///< Names of the pictures, as the list has them.
  std::string right;
  bool finished = false;  ///< Otherwise given up.
  Reason reason;          ///< Of a pair given up.
  std::vector<Figure> figures;
  std::size_t found_left = 0;  ///< Numbered dots in the last measured pictures.
  std::size_t found_right = 0;
  PairPoints points;
  std::optional<RefinedPair> refined;          ///< Only of a check that refines.
  std::vector<FigureUncertainty> uncertainty;  ///< Of the figures that are means or root mean squares.
  std::optional<PairQuality> quality;          ///< Of the pictures; none where they could not be looked at.

  /// None for a name that is no figure.
  POLARLINE_API const Figure* figure(const std::string& name) const;
  /// None for a figure that has none, or was not measured.
  POLARLINE_API const FigureUncertainty* uncertaintyOf(const std::string& name) const;
};

/// What the finished pairs that measured a figure come to. Of lists each entry has a name of its own, `tri_dis[0]`.
struct FigureSummary {
  std::string name;
  std::string unit;
  std::size_t count = 0;  ///< Pairs that measured it.
  double mean = 0.0;
  double sd = 0.0;  ///< Of the sample (n - 1); not a number for one pair.
  double min = 0.0;
  double max = 0.0;
  std::size_t worst_pair = 0;  ///< `index` of the pair whose value is farthest from 0.
  /// How certain the mean is, as a statement on more pairs of the kind; not a number below five pairs.
  double sd_mean = std::numeric_limits<double>::quiet_NaN();  ///< Standard error.
  double low95 = std::numeric_limits<double>::quiet_NaN();
  double high95 = std::numeric_limits<double>::quiet_NaN();
};

/// How a limit was kept.
struct LimitResult {
  std::string text;             ///< As it was given.
  std::optional<double> value;  ///< The one farthest beyond the limit, or nearest to it; none: nobody measured it.
  int pair = -1;                ///< Whose value it is; -1 for one of the whole run.
  bool holds = false;
  std::string why;         ///< In words.
  bool is_single = false;  ///< The value came in single precision.
};

/// What the limits say of a check.
enum class Verdict : std::uint8_t {
  kPass,   ///< The run has figures, and every limit holds.
  kFail,   ///< A limit is exceeded.
  kError,  ///< There is nothing to judge.
};

/// How a check ended.
struct Status {
  std::optional<std::int32_t> code;  ///< Of the library; none where it was not asked, or left by an exception.
  std::string name = "success";
  std::string text;    ///< What happened; empty on success.
  std::string advice;  ///< What to do; empty on success.
  bool retry = false;  ///< It may succeed when tried again.
  int exit_code = 0;   ///< Of the command: an `ExitCode`.
};

/// A file that a check reads.
struct SetInput {
  std::string role;  ///< "polar", "target", "calibration", "list", "board", "limits", "rectified", "left/0", "right/0".
  std::string path;  ///< As it was opened.
  std::string sha256;  ///< Of the content; empty where it could not be read.
};

/// One camera: pixels, and the coefficients of its lens.
struct CameraNumbers {
  double fx = 0.0, fy = 0.0, cx = 0.0, cy = 0.0;
  std::vector<double> coefficients;  ///< K1 to K6, P1, P2.
};

/// The cameras of the run.
struct Cameras {
  int type = 0;
  std::string model;  ///< "brown5", "brown8", "fisheye", "poly", "rectified" or "other".
  int width = 0;      ///< Of the first left picture; 0 while none was read.
  int height = 0;
  CameraNumbers left, right;
  std::vector<double> extrinsics;  ///< RX, RY, RZ (radians), TX, TY, TZ (board unit); empty for rectified pairs.
};

/// The board as the target configuration describes it.
struct BoardInfo {
  int type = 0;
  int rows = 0, cols = 0;
  double step = 0.0, step_y = 0.0;  ///< Board unit.
  std::size_t points = 0;           ///< True positions that the set has.
};

/// A key of the polar configuration as the run took it, its value written as JSON.
struct Setting {
  std::string key;
  std::string json;
};

/// A calibration with the causes of the row differences taken out, and what it is worth.
struct Correction {
  std::string path;             ///< Where it was written.
  double rows_predicted = 0.0;  ///< Mean absolute row difference that the diagnosis expects of it, pixels.
  double rows_seen = 0.0;       ///< The same of the set checked again with it; not a number: nothing was measured.
};

/// A check and all that came of it. Owns everything; nothing in it refers to the set.
struct Check {
  std::string started;  ///< UTC, ISO 8601.
  double seconds = 0.0;
  std::string name;    ///< The last folder of the set's path.
  std::string folder;  ///< Of the set.
  std::string id;      ///< SHA-256 over the inputs' roles and contents; the same wherever the set lies.
  std::vector<SetInput> inputs;
  Status status;
  std::vector<Setting> settings;
  BoardInfo board;
  Cameras cameras;
  std::vector<PairCheck> pairs;
  std::size_t listed = 0;  ///< Pairs that the run was to look at; more than `pairs` where it ended before the last.
  std::vector<FigureSummary> summary;
  std::optional<std::vector<FigureSummary>> refined_summary;  ///< Of the refined figures; only of a check that refines.
  std::vector<LimitResult> limits;
  Verdict verdict = Verdict::kError;
  std::optional<Diagnosis> diagnosis;    ///< Of a run that has figures, but of a frame run none.
  std::optional<Correction> correction;  ///< Where one was asked for, there are causes, and it makes the rows better.
  std::vector<Warning> warnings;

  /// How many pairs are finished.
  POLARLINE_API std::size_t finished() const;
};

/// Pictures in memory, one a pair and side: grey, BGR or BGRA of 8 or 16 bit a channel, rows with gaps between them,
/// too. The pixels are read only and not copied; they outlive the check.
struct Pictures {
  std::vector<cv::Mat> left, right;
};

/// What a check does beyond running the set. Nothing here changes a figure, but for `settings` and `pictures`.
struct CheckOptions {
  std::vector<std::string> limits;    ///< "FIGURE OP VALUE", besides those of the set's file.
  std::vector<std::string> settings;  ///< "KEY=VALUE": keys of the polar configuration for this run.
  /// In place of those of the set's list, which then need not be there. They are called "left[0]", "right[0]" and so
  /// on, have no path, and their hash is that of their size, type and pixels.
  std::optional<Pictures> pictures;
  std::string out;  ///< Folder for the library's own files; empty: none is written.
  /// Refines the dots' centres of each finished pair and evaluates it once more from these: `PairCheck::refined`.
  bool refine = false;
  std::optional<std::pair<std::size_t, std::size_t>> pairs;  ///< Positions of the first and the last pair; all without.
  /// Where the given calibration file goes with the causes taken out, all else of it kept: .json, or .bin of a binary
  /// one, as of polynomial lenses always; empty: nowhere. The set is then run once more, with that calibration.
  std::string write_corrected;
  bool diagnose = true;     ///< Look for the causes of the row differences.
  bool uncertainty = true;  ///< Tell how certain the figures are, for which the dots are detected once more.
  bool keep_points = true;  ///< Otherwise the points of a pair, refined ones too, are empty after `on_pair`.
  /// Called before the first pair, when inputs are read: all but pairs and what follows from them is filled.
  std::function<void(const Check&)> on_start;
  /// Called with each pair when the run is done with it, and the number of pairs of the run.
  std::function<void(const PairCheck&, std::size_t count)> on_pair;
  /// Asked between pairs; false ends the run, its status is then "interrupted".
  std::function<bool()> go_on;
};

/// Checks a set. Failures do not throw: they are the status of the result, with what was measured before them.
POLARLINE_API Check check(const Set& set, const CheckOptions& options = {});

/// The names that a limit may judge: figures, "refined." before each that has a refined value, "pairs", "finished",
/// "given_up".
POLARLINE_API std::vector<std::string> limitNames();

/// The keys that `CheckOptions::settings` takes, in the order of the page on the polar configuration.
POLARLINE_API std::vector<std::string> settingKeys();

/// Throws `InputError` for a limit that does not parse or names no figure; the nearest names are offered.
POLARLINE_API void requireLimit(const std::string& text);

/// The figures that say most of a pair, the one that says most first.
POLARLINE_API const std::vector<std::string>& mainFigures();

/// A value as a table has room for it: four decimals, none from 100000 on, three digits of what is very small or large.
POLARLINE_API std::string figureText(double value);

/// What stands behind the figures of the raw pair of fisheye lenses: they take the coefficients for Brown's. Empty for
/// other lenses and without a finished pair.
POLARLINE_API std::string fisheyeText(const Check& check);

/// "2 of 3 pairs finished."
POLARLINE_API std::string finishedText(const Check& check);

/// The pair whose main figure is farthest from 0, and the mean, in a sentence; empty without a finished pair.
POLARLINE_API std::string worstPairText(const Check& check);

/// What the refined centres make of that figure, in a sentence; empty where none were asked for.
POLARLINE_API std::string refinedPairText(const Check& check);

/// The pair whose failure ended the run, if the status is its reason; null otherwise. Belongs to the check.
POLARLINE_API const PairCheck* endingPair(const Check& check);

/// A text for each status that pairs were given up with: their number, what it means and what to do. Without the one of
/// a single pair that ended the run, which the check's status and advice say.
POLARLINE_API std::vector<std::string> givenUpTexts(const Check& check);

/// The verdict and why, in a sentence: "PASS: all 2 limits hold."
POLARLINE_API std::string verdictText(const Check& check);

/// The same below a list of the pairs: a pair that ended the run is named, and its reason, which its row says, is not
/// said again.
POLARLINE_API std::string endingText(const Check& check);

/// The JSON document of a check, schema "polarline-check/1".
POLARLINE_API std::string toJson(const Check& check);

/// Writes the document piece by piece while the check runs, so that no pair need be kept.
class POLARLINE_API CheckDocument {
 public:
  using Sink = std::function<void(const std::string&)>;

  explicit CheckDocument(Sink sink);
  CheckDocument(const CheckDocument&) = delete;
  CheckDocument& operator=(const CheckDocument&) = delete;
  ~CheckDocument();

  /// The next pair.
  void add(const PairCheck& pair);
  /// Everything else. The pairs of `check` count as added.
  void finish(const Check& check);

 private:
  class Writer;
  std::unique_ptr<Writer> writer_;
};

}  // namespace polarline
