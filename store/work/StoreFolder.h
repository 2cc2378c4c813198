#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace polarline {

/// The files of one document in a store.
struct StoredPlace {
  std::filesystem::path folder;
  std::string name;

  std::filesystem::path document() const { return folder / (name + ".json"); }
  std::filesystem::path metadata() const { return folder / (name + ".metadata.json"); }
  std::filesystem::path claim() const { return folder / (name + ".claim"); }
};

/// The folder that the workers of a fleet share. It bears a mark: what stands at its path while it is away, such as the
/// empty folder on which a disk is mounted, has none and takes nothing.
class StoreFolder {
 public:
  /// The name of the mark.
  static constexpr const char* kMark = "polarline-store.json";

  enum class IfMissing : std::uint8_t {
    kMake,       ///< Whatever stands there becomes a store.
    kMakeWhole,  ///< Only where nothing stands: a folder without a mark may be the place of a disk that is away.
    kRefuse,
  };

  /// Throws `OutputError`.
  explicit StoreFolder(const std::string& path, IfMissing if_missing = IfMissing::kMake);

  /// Throws `OutputError` while the folder is away.
  void demandThere() const;
  const std::filesystem::path& path() const { return path_; }
  StoredPlace place(const std::string& name) const;
  /// What does not belong to one document.
  StoredPlace root() const { return {path_, "polarline-store"}; }
  /// The same as `place`, its folder made. Throws `OutputError`.
  StoredPlace madePlace(const std::string& name) const;

  /// The time that the device of the store counts now, beside that place; none where it can't be had. The clocks of
  /// machines differ and jump.
  static std::optional<std::filesystem::file_time_type> now(const StoredPlace& place);

 private:
  bool hasMark() const;

  std::filesystem::path path_;
  std::filesystem::path mark_;
};

/// Removes what workers that ended left half written of a document. The place must be claimed.
void removeLeftovers(const StoredPlace& place);

}  // namespace polarline
