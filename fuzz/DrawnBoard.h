#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <opencv2/imgproc.hpp>
#include <string>
#include <vector>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/board/TargetConfigKeys.h"
#include "fuzz/Bytes.h"
#include "platform/ClassicStream.h"

/// Boards that the detection can find, as an input tells them: a configuration, its marks, and a picture of them.
namespace fuzzing {

enum Mark : int { kDot, kNoMark, kSmallRing, kSmallSolid, kBigRing, kBigSolid, kBigDot };
constexpr int kMarks = 7;

/// Radii in pitches: outline, hollow, core.
constexpr std::array<std::array<double, 3>, kMarks> kRadii = {
    {{0.3, 0, 0}, {0, 0, 0}, {0.5, 0.33, 0}, {0.5, 0.33, 0.16}, {0.8, 0.55, 0}, {0.8, 0.55, 0.28}, {0.45, 0, 0}}};

struct Board {
  kestrune::RingTargetConfig config;
  std::vector<Mark> marks;  ///< Row by row.

  void put(cv::Point2f cell, Mark mark) {
    const auto column = static_cast<int>(cell.x);
    const auto row = static_cast<int>(cell.y);
    if (column < 0 || column >= config.cols || row < 0 || row >= config.rows) return;
    marks[static_cast<std::size_t>(row * config.cols + column)] = mark;
  }
};

enum BoardKind : int { kSmallRings, kBigRings, kMixedRings, kBigDots, kSearchedDots, kLandMarks };
constexpr int kBoardKinds = 6;

inline kestrune::RingTargetConfig usualConfig(BoardKind kind) {
  kestrune::RingTargetConfig config;
  const auto set = [&config, kind](int columns, int rows, int inner_width, int inner_height, int outter_width) {
    config.cols = static_cast<std::uint16_t>(columns);
    config.rows = static_cast<std::uint16_t>(rows);
    config.inner_width = static_cast<std::uint16_t>(inner_width);
    config.inner_height = static_cast<std::uint16_t>(inner_height);
    config.outter_width = static_cast<std::uint16_t>(outter_width);
    config.outter_height = static_cast<std::uint16_t>(kind == kBigRings ? 9 : 13);
  };
  if (kind == kSmallRings) set(11, 9, 9, 7, 11);
  if (kind == kBigRings) set(15, 13, 7, 7, 11);
  if (kind == kMixedRings) set(19, 13, 9, 7, 15);
  if (kind >= kBigDots) {
    set(11, 9, 5, 5, 9);
    config.board_type = kestrune::kBigDotBoard;
    config.step = 20.0F;
    config.step_y = 20.0F;
    config.id_method = kind == kSearchedDots ? 1 : 0;
  }
  return config;
}

inline void putLandMarks(kestrune::RingTargetConfig& config) {
  const auto places = kestrune::BigDotLayout(config, 10, 10);
  const auto whole = [](float value) { return static_cast<std::uint16_t>(std::max(0.0F, value)); };
  config.land_mark_switch = 1;
  config.land_mark1_x = whole(places[0].x);
  config.land_mark1_y = whole(places[0].y);
  config.land_mark2_x = whole(places[1].x);
  config.land_mark2_y = whole(places[1].y);
  config.land_mark3_x = whole(places[2].x);
  config.land_mark3_y = whole(places[2].y);
  config.land_mark4_x = whole(places[3].x);
  config.land_mark4_y = whole(places[3].y);
}

/// The four neighbours of a big marker are not on the board, as it would cover them.
inline void putBig(Board& board, cv::Point2f cell, Mark mark) {
  for (const cv::Point2f& step : {cv::Point2f(1, 0), cv::Point2f(-1, 0), cv::Point2f(0, 1), cv::Point2f(0, -1)}) {
    board.put(cell + step, kNoMark);
  }
  board.put(cell, mark);
}

inline void putMarkers(Board& board, BoardKind kind) {
  if (kind >= kBigDots) {
    kestrune::RingTargetConfig config = board.config;
    config.land_mark_switch = 0;
    for (const cv::Point2f& cell : kestrune::BigDotLayout(config, 1, 1)) board.put(cell, kBigDot);
    return;
  }
  const auto cells =
      kestrune::MarkerLayout(board.config, {.rings_small = kind != kBigRings, .solid_big = kind != kSmallRings}, 1.0F);
  for (std::size_t k = 0; k < cells.size(); ++k) {
    if (k == 0 && kind == kSmallRings) board.put(cells[k], kSmallSolid);
    if (k == 0 && kind != kSmallRings) putBig(board, cells[k], kBigSolid);
    if (k != 0 && kind != kBigRings) board.put(cells[k], kSmallRing);
    if (k != 0 && kind == kBigRings) putBig(board, cells[k], kBigRing);
  }
}

/// A board of this kind, then some marks missing, put in the place of others or added.
inline Board boardFrom(BoardKind kind, Bytes& bytes) {
  Board board{usualConfig(kind), {}};
  kestrune::RingTargetConfig& config = board.config;
  for (std::uint16_t* field : {&config.rows, &config.cols}) *field = static_cast<std::uint16_t>(*field + bytes.upTo(6));
  for (std::uint16_t* field :
       {&config.inner_width, &config.inner_height, &config.outter_width, &config.outter_height}) {
    *field = static_cast<std::uint16_t>(std::max(0.0, bytes.around(*field, 4.0)));
  }
  if (kind == kLandMarks) putLandMarks(config);
  board.marks.assign(std::size_t{config.rows} * config.cols, kDot);
  putMarkers(board, kind);
  for (int k = bytes.upTo(15); k > 0; --k) {
    const auto place = static_cast<std::size_t>(bytes.next() * 256 + bytes.next());
    board.marks[place % board.marks.size()] = static_cast<Mark>(bytes.upTo(kMarks - 1));
  }
  return board;
}

inline std::string textOf(const kestrune::RingTargetConfig& config) {
  std::ostringstream text = classic::output();
  const auto line = [&text](const char* key, const auto& value) { text << key << ": " << value << '\n'; };
  kestrune::visitGeometryKeys(config, line);
  kestrune::visitDetectionKeys(config, line);
  kestrune::visitLimitKeys(config, line);
  text << kestrune::kDetectionIdKey << ": [";
  for (const std::uint16_t id : config.detection_id) text << id << ',';
  text << "]\n";
  return text.str();
}

/// Where the board's plane comes to lie; the unit of the board is a pitch.
struct View {
  cv::Size size;
  cv::Matx33d image_from_board;
};

inline View viewFrom(const Board& board, Bytes& bytes) {
  // A row for each scale of the detection: enlarged four times, twice, as it is, halved.
  struct Width {
    int least_width;
    double pitch;
  };
  constexpr std::array<Width, 6> kWidths = {{{60, 13}, {60, 13}, {321, 15}, {641, 20}, {2048, 34}, {2048, 34}}};
  const Width width = kWidths.at(static_cast<std::size_t>(bytes.upTo(5)));
  const double pitch = width.pitch * bytes.around(1.0, 0.4);
  const double half_width = (board.config.cols + 1) * pitch / 2;
  const double half_height = (board.config.rows + 1) * pitch / 2;
  const cv::Size size(std::clamp(static_cast<int>(2 * half_width), width.least_width, 2100),
                      std::clamp(static_cast<int>(2 * half_height), 40, 500));
  const double roll = bytes.around(0.0, 0.4) + bytes.upTo(3) * CV_PI / 2;
  const cv::Matx33d to_centre(1, 0, -(board.config.cols - 1) / 2.0, 0, 1, -(board.config.rows - 1) / 2.0, 0, 0, 1);
  const cv::Matx33d turn(std::cos(roll), -std::sin(roll), 0, std::sin(roll), std::cos(roll), 0, 0, 0, 1);
  const cv::Matx33d stretch(pitch * bytes.around(1.0, 0.4), pitch * bytes.around(0.0, 0.4), 0, 0,
                            pitch * bytes.around(1.0, 0.4), 0, bytes.around(0.0, 0.05), bytes.around(0.0, 0.05), 1);
  const cv::Matx33d to_image(1, 0, size.width / 2.0 + bytes.around(0.0, 50.0), 0, 1,
                             size.height / 2.0 + bytes.around(0.0, 50.0), 0, 0, 1);
  return {size, to_image * stretch * turn * to_centre};
}

inline void drawDisc(cv::Mat& image, const View& view, cv::Point2d centre, double radius, int grey) {
  constexpr int kCorners = 24;
  constexpr int kShift = 4;
  std::vector<cv::Point> outline;
  for (int k = 0; k < kCorners && radius > 0; ++k) {
    const double angle = 2 * CV_PI * k / kCorners;
    const cv::Vec3d seen = view.image_from_board *
                           cv::Vec3d(centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle), 1.0);
    if (seen[2] < 0.2) return;
    outline.emplace_back(cvRound(seen[0] / seen[2] * (1 << kShift)), cvRound(seen[1] / seen[2] * (1 << kShift)));
  }
  if (!outline.empty()) cv::fillConvexPoly(image, outline, cv::Scalar(grey), cv::LINE_AA, kShift);
}

inline void drawSpecks(cv::Mat& image, int count, Bytes& bytes) {
  for (; count > 0; --count) {
    const cv::Point centre(bytes.next() * image.cols / 255, bytes.next() * image.rows / 255);
    const cv::Size axes(1 + bytes.upTo(11), 1 + bytes.upTo(11));
    cv::ellipse(image, centre, axes, bytes.next(), 0, 360, cv::Scalar(bytes.next()), bytes.onceIn(4) ? 2 : -1);
  }
}

inline void blurAndAddNoise(cv::Mat& image, Bytes& bytes) {
  const double blur = bytes.around(0.6, 0.6);
  if (blur > 0.1) cv::GaussianBlur(image, image, {}, blur);
  const int noise = bytes.upTo(15);
  if (noise == 0) return;
  cv::Mat errors(image.size(), CV_16SC1);
  cv::RNG(static_cast<std::uint64_t>(bytes.next())).fill(errors, cv::RNG::NORMAL, 0, noise * 0.5);
  cv::add(image, errors, image, cv::noArray(), CV_8U);
}

inline cv::Mat pictureOf(const Board& board, Bytes& bytes) {
  const View view = viewFrom(board, bytes);
  int dark = 25 + bytes.upTo(127);
  int bright = 215 - bytes.upTo(127);
  if (bytes.onceIn(4)) std::swap(dark, bright);
  const double larger = bytes.around(1.0, 0.3);
  cv::Mat image(view.size, CV_8UC1, cv::Scalar(bright));
  for (std::size_t k = 0; k < board.marks.size(); ++k) {
    const auto cell = static_cast<int>(k);
    const cv::Point2d centre(cell % board.config.cols, cell / board.config.cols);
    const auto& radii = kRadii[static_cast<std::size_t>(board.marks[k])];
    drawDisc(image, view, centre, radii[0] * larger, dark);
    drawDisc(image, view, centre, radii[1] * larger, bright);
    drawDisc(image, view, centre, radii[2] * larger, dark);
  }
  drawSpecks(image, bytes.upTo(15), bytes);
  blurAndAddNoise(image, bytes);
  return image;
}

}  // namespace fuzzing
