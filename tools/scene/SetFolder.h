#pragma once

#include <filesystem>
#include <string>

namespace scene {

/// The place of a set: written in a folder beside it, then moved there as a whole. What has not been moved is gone at
/// the end of the object's life.
class SetFolder {
 public:
  /// `scratch`: an empty folder to write in; empty: one beside the place. Throws polarline::InputError for a place that
  /// is no folder, and unless `force` for a folder that is not empty; polarline::OutputError where none can be made.
  SetFolder(const std::string& place, const std::string& scratch, bool force);
  SetFolder(const SetFolder&) = delete;
  SetFolder& operator=(const SetFolder&) = delete;
  ~SetFolder();

  /// Where to write.
  [[nodiscard]] std::string path() const { return partial_.string(); }

  /// Moves the set to its place. In a folder that is not empty file by file, those of an earlier set taken out first so
  /// that none of them is taken for one of this set. Throws polarline::OutputError.
  void finish();

 private:
  std::filesystem::path place_, partial_;
};

}  // namespace scene
