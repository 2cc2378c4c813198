#include "report/picture/SetBoard.h"

#include <exception>
#include <opencv2/core.hpp>
#include <vector>

#include "check/run/BoardInput.h"
#include "report/picture/SetFiles.h"

namespace polarline {

Board boardOf(const Json& document, const std::string& path) {
  Board board(document);
  const auto file = SetFiles(document, path).find("board");
  if (!file) return board;
  try {
    std::vector<cv::Point3d> places;
    for (const auto& place : readBoardTruth(*file)) places.emplace_back(place);
    board.take(places);
  } catch (const std::exception&) {
    return board;  // The grid is near.
  }
  return board;
}

}  // namespace polarline
