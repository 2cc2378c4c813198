#pragma once

#include <opencv2/core.hpp>
#include <string>

namespace kestrune {

/// Whether the path's extension is one that `cv::FileStorage` reads: json, xml, yml or yaml, in small letters.
bool isStorageFile(const std::string& path);

/// Opens the storage; false when it does not open. An exception of OpenCV becomes `std::system_error` of file not
/// accessible with the text `operation`.
bool openStorage(cv::FileStorage& storage, const std::string& path, int mode, const char* operation);

}  // namespace kestrune
