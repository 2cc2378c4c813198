#pragma once

#include <cstdlib>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <stdexcept>
#include <string>

#include "support/TempFolder.h"

/// The first page of a PDF as another program shows it (pdftoppm, of poppler-utils).
inline cv::Mat renderedPdf(const std::string& pdf, int dpi) {
  const TempFolder folder;
  folder.write("board.pdf", pdf);
  const std::string command = "pdftoppm -gray -singlefile -r " + std::to_string(dpi) + " '" + folder.file("board.pdf") +
                              "' '" + folder.file("board") + "'";
  if (std::system(command.c_str()) != 0) throw std::runtime_error("pdftoppm failed");
  return cv::imread(folder.file("board.pgm"), cv::IMREAD_GRAYSCALE);
}
