#include "tools/scene/PresetBoards.h"

namespace scene {
namespace {

Board ringBoard(BoardKind kind, int rows, int cols) {
  Board board;
  board.kind = kind;
  board.rows = rows;
  board.cols = cols;
  board.step = 17.5;
  return board;
}

}  // namespace

Board largeRingBoard(BoardKind kind) { return ringBoard(kind, 35, 37); }

Board smallRingBoard() {
  Board board = ringBoard(BoardKind::kSmallRings, 15, 17);
  board.outter_width = 13;
  board.outter_height = 11;
  return board;
}

Board defaultRingBoard() {
  Board board = ringBoard(BoardKind::kSmallRings, 71, 73);
  board.inner_width = 17;
  board.inner_height = 13;
  board.outter_width = 33;
  board.outter_height = 25;
  board.dot_radius = 0.38;
  board.margin = 1.0;
  return board;
}

Board bigDotBoard(int rows, int cols) {
  Board board;
  board.kind = BoardKind::kBigDots;
  board.rows = rows;
  board.cols = cols;
  board.step_y = 20.0;
  board.inner_width = 5;
  board.inner_height = 5;
  return board;
}

}  // namespace scene
