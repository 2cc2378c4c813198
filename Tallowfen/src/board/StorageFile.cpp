#include "Tallowfen/src/board/StorageFile.h"

#include <exception>
#include <set>
#include <system_error>

#include "MorvenKit/ErrorCategories.h"
#include "platform/Document.h"
#include "platform/Files.h"

namespace kestrune {

bool isStorageFile(const std::string& path) {
  static const std::set<std::string> kExtensions = {"json", "xml", "yml", "yaml"};
  return kExtensions.contains(files::extensionOf(path));
}

bool openStorage(cv::FileStorage& storage, const std::string& path, int mode, const char* operation) {
  try {
    storage = mode == cv::FileStorage::READ ? documents::openForReading(path) : documents::openForWriting(path);
    return storage.isOpened();
  } catch (const std::exception&) {
    // Callers know a document that cannot be parsed by this error, so OpenCV's exception may not pass.
    throw std::system_error(make_error_code(morvenkit::DetectorErrc::kFileNotAccessible), operation);
  }
}

}  // namespace kestrune
