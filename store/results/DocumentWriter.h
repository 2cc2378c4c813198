#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "store/results/LoadDocument.h"
#include "store/results/SetRows.h"
#include "store/results/Sqlite.h"

namespace polarline::results {

/// What the results know of a document: the states of the files as they were merged. A file that could not be read is
/// known as one that is not there, and so read again each time.
struct KnownDocument {
  FileState document, metadata;

  friend bool operator==(const KnownDocument&, const KnownDocument&) = default;
};

/// Writes documents into the results, within transactions of the caller.
class DocumentWriter {
 public:
  explicit DocumentWriter(const sqlite::Database& database);

  enum class Outcome : std::uint8_t { kAdded, kReplaced, kRenewed, kElsewhere, kUnchanged, kUnreadable, kGone };

  /// The number of a store, by its path.
  std::int64_t store(const std::string& path);
  std::unordered_map<std::string, KnownDocument> knownOf(std::int64_t store);
  std::optional<KnownDocument> known(std::int64_t store, const std::string& name);

  Outcome write(std::int64_t store, const LoadedDocument& loaded);

  /// Names of the sets whose files could not be read.
  std::vector<std::string> unreadSets(std::int64_t store);
  /// Such a set, when its document is gone: a worker could read the files since, and wrote another one.
  void dropUnread(std::int64_t store, const std::string& name);

  /// Sets whose files could not be read at last, but which were judged before or since: they count once.
  void dropKnown();

  void quarantine(const std::string& path, const std::string& reason);
  void release(const std::string& path);

  /// Documents of other stores that may be the better ones since one got worse; their stores are to be merged again.
  std::size_t forgotten() const { return forgotten_; }

 private:
  /// The row of a document.
  struct Row {
    std::int64_t id = 0;
    std::string sha256;
    KnownDocument known;
  };
  /// A set in the results and the document that it is of.
  struct Holder {
    std::int64_t set = 0, document = 0;
    bool retry = false;
    std::string started, sha256, store;  ///< The store by its path.
  };
  std::optional<Row> row(std::int64_t store, const std::string& name);
  std::int64_t setRow(std::int64_t store, const LoadedDocument& loaded, const std::optional<Row>& earlier);
  std::optional<Holder> holder(const std::string& name);
  bool isBetter(std::int64_t store, const LoadedDocument& loaded, const Holder& holder);
  std::string pathOf(std::int64_t store);
  Outcome writeSet(std::int64_t store, std::int64_t document, const LoadedDocument& loaded);
  Outcome writeMetadata(std::int64_t document, const LoadedDocument& loaded, const KnownDocument& known);
  void forgetRivals(std::int64_t store, const std::string& name);

  const sqlite::Database& database_;
  SetRows sets_;
  sqlite::Statement add_store_, find_store_, find_row_, all_rows_, add_row_, change_row_, find_holder_, find_path_,
      forget_, all_unread_, drop_unread_, drop_row_;
  sqlite::Statement quarantine_, release_;
  std::size_t forgotten_ = 0;
};

}  // namespace polarline::results
