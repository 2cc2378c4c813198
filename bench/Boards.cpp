#include "bench/Boards.h"

#include <fmt/format.h>

#include "tools/scene/PresetBoards.h"
#include "tools/scene/PresetRigs.h"
#include "tools/scene/Render.h"
#include "tools/scene/SceneRecipe.h"

namespace {

using scene::BoardKind;

constexpr int kManyRows = 71;

scene::Board boardOf(const BoardPicture& picture) {
  scene::Board board = scene::bigDotBoard(picture.rows, picture.cols);
  if (picture.kind != BoardKind::kBigDots) {
    board = picture.rows == kManyRows ? scene::defaultRingBoard() : scene::largeRingBoard(picture.kind);
    board.kind = picture.kind;
    board.rows = picture.rows;
    board.cols = picture.cols;
  }
  return board;
}

scene::Scene sceneOf(const BoardPicture& picture, const scene::Board& board) {
  scene::SceneRecipe recipe;
  recipe.rig = scene::brownRig({picture.width, picture.height, 60.0});
  recipe.board = board;
  recipe.poses = {scene::PoseWish{3.0, -4.0, 2.0, 0.97}};
  return scene::sceneOf(recipe);
}

cv::Mat leftOf(const scene::Scene& scene) {
  return scene::renderImage(scene.rig.left, scene.board, scene.left_from_board.front(), scene.optics, scene.seed);
}

std::vector<BoardPicture> smallestPicture() { return {{BoardKind::kBigDots, 320, 256, 21, 23}}; }

std::vector<BoardPicture> allPictures() {
  return {{BoardKind::kSmallRings, 320, 256, 23, 27},   {BoardKind::kBigRings, 320, 256, 35, 37},
          {BoardKind::kBigDots, 320, 256, 23, 27},      {BoardKind::kBigDots, 320, 256, 35, 37},
          {BoardKind::kSmallRings, 640, 512, 23, 27},   {BoardKind::kSmallRings, 640, 512, 35, 37},
          {BoardKind::kBigRings, 640, 512, 71, 73},     {BoardKind::kBigDots, 640, 512, 23, 27},
          {BoardKind::kBigDots, 640, 512, 35, 37},      {BoardKind::kBigDots, 1280, 1024, 16, 26},
          {BoardKind::kBigDots, 1280, 1024, 23, 27},    {BoardKind::kBigDots, 1280, 1024, 35, 37},
          {BoardKind::kBigDots, 1920, 1536, 71, 73},    {BoardKind::kSmallRings, 2448, 2048, 23, 27},
          {BoardKind::kSmallRings, 2448, 2048, 35, 37}, {BoardKind::kSmallRings, 2448, 2048, 71, 73},
          {BoardKind::kBigDots, 2448, 2048, 23, 27},    {BoardKind::kBigDots, 2448, 2048, 35, 37},
          {BoardKind::kBigDots, 4096, 3072, 71, 73}};
}

}  // namespace

std::string BoardPicture::name() const {
  const char* board = kind == BoardKind::kBigDots ? "big dots" : kind == BoardKind::kBigRings ? "big rings" : "rings";
  return fmt::format("{}, {} dots, {} x {}", board, dots(), width, height);
}

scene::Scene BoardPicture::scene() const { return sceneOf(*this, boardOf(*this)); }

cv::Mat BoardPicture::image() const { return leftOf(scene()); }

cv::Mat BoardPicture::plainGrid() const {
  scene::Board board = scene::bigDotBoard(rows, cols);
  board.dot_radius = boardOf(*this).dot_radius;
  board.margin = boardOf(*this).margin;
  board.big_dot.outer = board.dot_radius;
  return leftOf(sceneOf(*this, board));
}

std::vector<BoardPicture> boardPictures(bool quick, const std::string& only) {
  std::vector<BoardPicture> pictures = quick ? smallestPicture() : allPictures();
  std::erase_if(pictures, [&](const BoardPicture& picture) { return picture.name().find(only) == std::string::npos; });
  return pictures;
}
