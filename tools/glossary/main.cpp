#include <exception>
#include <iostream>
#include <opencv2/imgcodecs.hpp>
#include <string>

#include "tools/glossary/BoardPicture.h"

namespace {

/// Small rings on the inner rectangle and a big solid ring on the outer one: both sizes of markers on one board.
scene::Board ringBoard() {
  scene::Board board;
  board.kind = scene::BoardKind::kMixedRings;
  board.rows = 9;
  board.cols = 13;
  board.inner_width = 5;
  board.inner_height = 5;
  board.outter_width = 11;
  board.outter_height = 7;
  board.margin = 1.2;
  return board;
}

scene::Board bigDotBoard() {
  scene::Board board = ringBoard();
  board.kind = scene::BoardKind::kBigDots;
  return board;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr
        << "glossary_pictures FOLDER   draws board_rings.png and board_big_dots.png into a folder that is there\n";
    return 2;
  }
  try {
    const std::string folder = argv[1];
    const std::vector<int> smallest = {cv::IMWRITE_PNG_COMPRESSION, 9, cv::IMWRITE_PNG_STRATEGY,
                                       cv::IMWRITE_PNG_STRATEGY_DEFAULT};
    if (!cv::imwrite(folder + "/board_rings.png", boardPicture(numberedBoard(ringBoard())), smallest) ||
        !cv::imwrite(folder + "/board_big_dots.png", boardPicture(numberedBoard(bigDotBoard())), smallest)) {
      std::cerr << "cannot write into " << folder << "\n";
      return 1;
    }
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
  return 0;
}
