#pragma once

#include <cstdio>
#include <filesystem>
#include <string_view>

/// Files and folders that appear whole or not at all: written beside their place under another name, synced, renamed.
/// A link is followed and stays. Paths are the system's own, of any bytes. Failures throw `polarline::OutputError`, and
/// nothing half stays.
namespace whole_file {

/// Writes the content in place of an earlier file. `shown`: what a failure calls it, where the path is that of a folder
/// which is still to be put in its place.
void write(const std::filesystem::path& path, std::string_view content);
void write(const std::filesystem::path& path, std::string_view content, const std::filesystem::path& shown);

/// A file that is written piece by piece beside its place; `commit` puts it there, without it nothing stays. A device
/// is written directly.
class PartialFile {
 public:
  explicit PartialFile(const std::filesystem::path& place) : PartialFile(place, place) {}
  /// `shown`: what a failure calls the file.
  PartialFile(const std::filesystem::path& place, std::filesystem::path shown);
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;
  ~PartialFile();

  /// A piece that could not be written is missing for good: from then on every call throws, also once there is space
  /// again.
  void append(std::string_view content);
  void commit();
  /// The same at another place on the device of the first.
  void commitAt(const std::filesystem::path& place);

 private:
  [[noreturn]] void fail(int error) const;

  std::filesystem::path shown_;
  std::filesystem::path place_;
  std::filesystem::path written_;  ///< The place itself for a device.
  std::FILE* file_ = nullptr;
  int error_ = 0;  ///< Of the first piece that could not be written.
};

/// A folder under another name beside its place, gone at the end of the object's life.
class PartialFolder {
 public:
  /// Makes the folder; those above its place must be there.
  explicit PartialFolder(const std::filesystem::path& place);
  PartialFolder(const PartialFolder&) = delete;
  PartialFolder& operator=(const PartialFolder&) = delete;
  ~PartialFolder();

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// A name beside the place that nobody else has, neither another process nor one of another machine.
std::filesystem::path beside(const std::filesystem::path& place);

/// Whether a path is such a name, by whichever process.
bool isPartial(const std::filesystem::path& path);

/// Whether it is such a name of a process of this machine that has ended. What another machine made never is, nor what
/// a living process did.
bool isAbandoned(const std::filesystem::path& path);

/// A path that is to go when the process ends at a signal, though it is not one of the above; and one that need not.
void addUnfinished(const std::filesystem::path& path);
void forgetUnfinished(const std::filesystem::path& path);

/// Has the system write down which files a folder holds, as far as it can.
void syncFolder(const std::filesystem::path& folder);

/// Results that belong together: who ends the process at a signal waits until all of them are written.
class Together {
 public:
  Together();
  Together(const Together&) = delete;
  Together& operator=(const Together&) = delete;
  ~Together();
};

/// Waits until nobody writes such results, two seconds at most, and keeps others from beginning: before `abandonAll`.
/// Whether some were written to their end.
bool endTogether();

/// Removes whatever is being written at this moment and keeps every later writer waiting: the last call before a
/// process ends at a signal, from any thread.
void abandonAll();

}  // namespace whole_file
