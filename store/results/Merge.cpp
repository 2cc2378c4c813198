#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "polarline/errors.h"
#include "polarline/store.h"
#include "store/results/DocumentWriter.h"
#include "store/results/Schema.h"
#include "store/results/Sqlite.h"
#include "store/results/StoreMerge.h"
#include "store/work/StoreFolder.h"

namespace polarline {
using namespace results;

namespace {

namespace fs = std::filesystem;

/// The same folder by whatever name is merged once.
std::set<fs::path> foldersOf(const std::vector<std::string>& stores) {
  std::set<fs::path> folders;
  for (const std::string& store : stores) {
    std::error_code failure;
    const fs::path folder = fs::canonical(store, failure);
    if (failure) throw InputError(store, failure.message());
    if (!fs::is_directory(folder, failure))
      throw InputError(store, "is no folder; a store of 'polarline batch' was wanted");
    // The place of a store that is away would be taken for one without documents.
    if (!fs::exists(folder / StoreFolder::kMark, failure))
      throw InputError(store, std::string("has no ") + StoreFolder::kMark +
                                  ": it is no store of 'polarline batch', or its disk is not mounted");
    folders.insert(folder);
  }
  return folders;
}

}  // namespace

MergeResult merge(const std::vector<std::string>& stores, const std::string& results, const MergeOptions& options) {
  const std::set<fs::path> folders = foldersOf(stores);
  const std::unique_ptr<sqlite::Database> database = openResultsToWrite(results);
  MergeResult result;
  DocumentWriter writer(*database);
  for (const fs::path& folder : folders) StoreMerge(*database, writer, folder).run(options, result);
  if (writer.forgotten() > 0) {
    // A document got worse than one of another store, which may have been looked at before: what each held to be
    // settled is looked at once more. Counted is what the first look saw.
    MergeResult again;
    for (const fs::path& folder : folders) StoreMerge(*database, writer, folder).run({}, again);
  }
  writer.dropKnown();
  result.sets = static_cast<std::size_t>(database->integer("SELECT count(*) FROM sets"));
  finishWriting(*database);
  return result;
}

}  // namespace polarline
