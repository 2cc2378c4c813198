#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "polarline/store.h"
#include "store/results/DocumentWriter.h"
#include "store/results/StoreWalk.h"

namespace polarline::results {

/// Merges one store folder.
class StoreMerge {
 public:
  /// @param store  The folder's path as the results shall have it.
  StoreMerge(const sqlite::Database& database, DocumentWriter& writer, std::filesystem::path store);

  void run(const MergeOptions& options, MergeResult& result);

 private:
  /// A document that is new or changed, and as what the results knew it when that was seen.
  struct Work {
    std::string name;
    std::optional<KnownDocument> known;
  };
  using Loaded = std::vector<LoadedDocument>;

  std::vector<Work> findWork(MergeResult& result);
  Loaded load(const std::vector<Work>& work, std::size_t begin) const;
  void write(const std::vector<Work>& work, std::size_t begin, Loaded& loaded, MergeResult& result);
  void dropGone();
  void count(const LoadedDocument& loaded, DocumentWriter::Outcome outcome, MergeResult& result);
  void tell(const std::filesystem::path& path, const std::string& fault, MergeResult& result);

  const sqlite::Database& database_;
  DocumentWriter& writer_;
  std::filesystem::path store_;
  std::int64_t number_ = 0;
};

}  // namespace polarline::results
