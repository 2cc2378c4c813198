#include <fmt/format.h>

#include <string>
#include <string_view>

#include "board/marks/DetectorConfig.h"
#include "polarline/board.h"

namespace polarline {
namespace {

/// `key: value` lines, each below a comment.
class Lines {
 public:
  template <typename T>
  void add(std::string_view comment, std::string_view key, const T& value) {
    text_ += fmt::format("# {}\n{}: {}\n", comment, key, value);
  }
  void comment(std::string_view text) { text_ += fmt::format("# {}\n", text); }
  [[nodiscard]] const std::string& text() const { return text_; }

 private:
  std::string text_;
};

void addGeometry(const kestrune::RingTargetConfig& config, Lines& lines) {
  lines.add("1, 2: ring board; 3: big dot board", "board_type", config.board_type);
  lines.add("Dots down", "rows", config.rows);
  lines.add("Dots across", "cols", config.cols);
  lines.add("Dots that the inner marker rectangle spans across, corners included", "inner_width", config.inner_width);
  lines.add("The same down", "inner_height", config.inner_height);
  lines.add("Dots that the outer marker rectangle spans across, corners included", "outter_width", config.outter_width);
  lines.add("The same down", "outter_height", config.outter_height);
  lines.add("Pitch of the dots along a row, board unit", "step", config.step);
  lines.add("Radius of the dots, in pitches", "ratio_solid", config.ratio_solid);
  lines.add("Radius of the big markers, in pitches; without effect", "ratio_big_ring", config.ratio_big_ring);
  lines.add("Without effect", "seed", 0);
}

void addLandMarks(const kestrune::RingTargetConfig& config, Lines& lines) {
  lines.add("1: the big dots stand at the land marks; 0: on the inner rectangle", "land_mark_switch",
            config.land_mark_switch);
  lines.add("Their places: tenths of a pitch with id_method 0, board units with 1", "land_mark1_x",
            config.land_mark1_x);
  lines.add("The same down", "land_mark1_y", config.land_mark1_y);
  lines.add("The second", "land_mark2_x", config.land_mark2_x);
  lines.add("The same down", "land_mark2_y", config.land_mark2_y);
  lines.add("The third", "land_mark3_x", config.land_mark3_x);
  lines.add("The same down", "land_mark3_y", config.land_mark3_y);
  lines.add("The fourth", "land_mark4_x", config.land_mark4_x);
  lines.add("The same down", "land_mark4_y", config.land_mark4_y);
}

void addDetection(const kestrune::RingTargetConfig& config, Lines& lines) {
  lines.add("Pitch of the rows, board unit", "step_y", config.step_y);
  lines.add("0: ids grow from the markers; 1: every dot is searched in the grid", "id_method", config.id_method);
  addLandMarks(config, lines);
  lines.add("1: keep only the ids of detection_id, if these are 4 or more", "detection_switch", 0);
  lines.add("Those ids, without blanks", "detection_id", "[0]");
  lines.add("Binarisation: 0 local thresholds; 1, 2 by outlines", "bin_method", config.bin_method);
  lines.add("Without effect", "bin_thresh", 0);
  lines.add("Tile of the local thresholds, pixels", "bin_blocksize", config.bin_blocksize);
  lines.add("Smallest dot, pixels", "min_radius", config.min_radius);
  lines.add("Largest dot, pixels", "max_radius", config.max_radius);
  lines.add("Largest residual of an ellipse", "max_sigma", config.max_sigma);
  lines.add("Least roundness of a dot", "min_circularity", config.min_circularity);
}

}  // namespace

std::string targetIni(const BoardDescription& board) {
  const kestrune::RingTargetConfig config = boards::detectorConfig(board);
  Lines lines;
  lines.comment("Board " + boardText(board));
  addGeometry(config, lines);
  if (!boards::isRingBoard(board)) addDetection(config, lines);
  return lines.text();
}

}  // namespace polarline
