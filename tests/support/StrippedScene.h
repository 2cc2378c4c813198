#pragma once

#include <fmt/format.h>

#include <filesystem>
#include <string>

#include "polarline/init.h"
#include "support/RenderedSet.h"
#include "support/TempFolder.h"

/// A rendered set of which only pictures and calibration are left, and what is asked for to make a set of them.
class StrippedScene {
 public:
  explicit StrippedScene(const RenderedSet& scene) {
    namespace fs = std::filesystem;
    for (const auto& entry : fs::directory_iterator(scene.file("."))) {
      const std::string name = entry.path().filename().string();
      const bool stays = entry.path().extension() == ".png" || name.starts_with("calib.");
      if (stays) fs::copy_file(entry.path(), folder_.path() / name);
    }
    request.folder = folder_.file("set");
    request.left = {folder_.file("left_*.png")};
    request.right = {folder_.file("right_*.png")};
    request.board = boardOf(scene.scene().board);
    request.calibration = {folder_.file(folder_.has("calib.json") ? "calib.json" : "calib.bin")};
  }

  const TempFolder& folder() const { return folder_; }

  polarline::InitRequest request;

 private:
  static std::string boardOf(const scene::Board& board) {
    const char* const kind = board.kind == scene::BoardKind::kBigDots      ? "dots"
                             : board.kind == scene::BoardKind::kBigRings   ? "rings-big"
                             : board.kind == scene::BoardKind::kSmallRings ? "rings-small"
                                                                           : "rings-mixed";
    return fmt::format("{}:{}x{}:{}:inner={}x{}:outter={}x{}", kind, board.cols, board.rows, board.step,
                       board.inner_width, board.inner_height, board.outter_width, board.outter_height);
  }

  TempFolder folder_;
};
