#pragma once

#include <opencv2/core.hpp>
#include <string>

/// The file system as the renderer uses it: the system's own paths. Every failure throws polarline::OutputError that
/// names the path.
namespace scene {

/// Makes the folder and those above it; no failure if it is there.
void makeFolder(const std::string& path);

/// Writes the content byte by byte, in place of an earlier file.
void writeFile(const std::string& path, const std::string& content);

/// Writes a PNG.
void writePng(const std::string& path, const cv::Mat& image);

}  // namespace scene
