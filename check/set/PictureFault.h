#pragma once

#include <string>

namespace polarline {

/// Whether a PNG or JPEG of this content lacks its end. Other kinds are taken for whole.
bool isCutOff(const std::string& content);

/// Whether the file is a JPEG that lacks its end: the decoder makes grey of what is missing, without a failure.
bool isCutOffJpeg(const std::string& path);

/// Why a file gives no picture.
struct PictureFault {
  std::string text;         ///< "can't be read: Permission denied", "can't be decoded: it is cut off".
  bool may_return = false;  ///< It is not there or can't be reached, and may be when tried again.
};

/// Of a file that `files::readImage` made nothing of.
PictureFault pictureFault(const std::string& path);

}  // namespace polarline
