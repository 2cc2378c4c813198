#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "polarline/api.h"

/// Many checks: the documents that workers left in store folders (`polarline batch`), merged into one results file,
/// SQLite, which `sqlite3` and pandas read as they are. docs/store.md describes its tables and views.
namespace polarline {

/// A file of a store that was left out of the results.
struct UnreadableDocument {
  std::string path;
  std::string reason;  ///< With the byte where it is no document, or what the system says.
};

/// What a merge did.
struct MergeResult {
  std::size_t documents = 0;  ///< That lie in the stores, readable or not.
  std::size_t added = 0;      ///< Sets that are new in the results.
  std::size_t replaced = 0;   ///< Sets that were judged anew since.
  std::size_t renewed = 0;    ///< Sets of which only the metadata changed.
  std::size_t elsewhere = 0;  ///< Documents of sets that another store has a later one of; new ones of these.
  std::size_t unchanged = 0;
  std::vector<UnreadableDocument> unreadable;  ///< Documents, and metadata beside documents that count without them.
  std::size_t sets = 0;                        ///< That the results have in all.
};

/// How a merge reports.
struct MergeOptions {
  /// Called now and then with the documents of a store that were looked at, and how many need it.
  std::function<void(std::size_t done, std::size_t all)> on_progress;
};

/// Merges the documents of store folders into a results file, which is made where it is not there and brought to the
/// current schema where it is an earlier one's. Only what is new or changed is read. Sets that the results have stay in
/// them when their document is gone. Workers may write into the stores meanwhile, and other merges into the file; a
/// process that dies leaves the file whole, with a part of the documents. A document that can't be read is left out and
/// told, again at each merge, until it is gone or mended.
///
/// Throws `InputError` for a store that is no folder or has no mark, as its disk is away, and a results file that is
/// something else, damaged, or of a newer schema; `OutputError` where the file can't be written.
POLARLINE_API MergeResult merge(const std::vector<std::string>& stores, const std::string& results,
                                const MergeOptions& options = {});

/// What a merge did, in lines for people.
POLARLINE_API std::string mergeText(const MergeResult& result);

/// The same as JSON, schema "polarline-merge/1".
POLARLINE_API std::string mergeJson(const MergeResult& result);

/// Whether a file begins as SQLite's do: results rather than the document of a check.
POLARLINE_API bool isResultsFile(const std::string& path);

/// How the data of a fleet's page are made. They are the same for the same results and options.
struct FleetOptions {
  std::string title;  ///< Empty: the name of the results file, without folder and ending.
  std::string made;   ///< When: UTC, ISO 8601; empty: now.
  /// Where the worst sets' pages lie, as a URL that the fleet's page sees, percent-encoded; empty: they have none.
  std::string pages;
};

/// What the results say of the fleet as a page needs it: JSON, schema "polarline-fleet/1", of cells (counts, means,
/// histograms by station, model and day), no points, so that it is small whatever the number of sets. Of one moment,
/// also while a merge writes. Throws as `merge` does, and `InputError` for results of an earlier schema.
POLARLINE_API std::string fleetData(const std::string& results, const FleetOptions& options = {});

/// The document of one of the sets that the fleet's page calls worst.
struct WorstDocument {
  std::string name;  ///< As the data have it, `worst[].document`.
  std::string path;  ///< In its store, which may be gone by now.
};

/// The documents of the worst sets, in the order of the data. Throws as `fleetData` does.
POLARLINE_API std::vector<WorstDocument> worstDocuments(const std::string& results);

}  // namespace polarline
