#include "store/results/DocumentWriter.h"

#include <sqlite3.h>

#include <tuple>

namespace polarline::results {
namespace {

/// From the size on, as `documents` has the two states.
KnownDocument knownAt(const sqlite::Statement& row, int first) {
  const auto state = [&](int column) {
    return FileState{row.integer(column), row.integer(column + 1), row.integer(column + 2)};
  };
  return {state(first), state(first + 3)};
}

}  // namespace

DocumentWriter::DocumentWriter(const sqlite::Database& database)
    : database_(database),
      sets_(database),
      add_store_(database, "INSERT OR IGNORE INTO stores(path) VALUES (?)"),
      find_store_(database, "SELECT id FROM stores WHERE path = ?"),
      find_row_(database,
                "SELECT id, sha256, size, modified, inode, metadata_size, metadata_modified, metadata_inode "
                "FROM documents WHERE store = ? AND name = ?"),
      all_rows_(database,
                "SELECT name, size, modified, inode, metadata_size, metadata_modified, metadata_inode "
                "FROM documents WHERE store = ?"),
      add_row_(database,
               "INSERT INTO documents(store, name, sha256, size, modified, inode, metadata_size, metadata_modified, "
               "metadata_inode) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"),
      change_row_(database,
                  "UPDATE documents SET sha256 = ?, size = ?, modified = ?, inode = ?, metadata_size = ?, "
                  "metadata_modified = ?, metadata_inode = ? WHERE id = ?"),
      find_holder_(database,
                   "SELECT s.id, s.document, s.retry, s.started, d.sha256, t.path FROM sets s "
                   "JOIN documents d ON d.id = s.document JOIN stores t ON t.id = d.store WHERE s.name = ?"),
      find_path_(database, "SELECT path FROM stores WHERE id = ?"),
      forget_(database,
              "UPDATE documents SET size = -1, sha256 = '' "
              "WHERE store IN (SELECT id FROM stores WHERE id <> ?) AND name = ?"),
      all_unread_(database,
                  "SELECT d.name FROM sets s JOIN documents d ON d.id = s.document "
                  "WHERE s.inputs_sha256 = '' AND d.store = ?"),
      drop_unread_(database,
                   "DELETE FROM sets WHERE inputs_sha256 = '' AND name = ?2 "
                   "AND document IN (SELECT id FROM documents WHERE store = ?1 AND name = ?2)"),
      drop_row_(database, "DELETE FROM documents WHERE store = ? AND name = ?"),
      quarantine_(database,
                  "INSERT INTO quarantine VALUES (?, ?, strftime('%Y-%m-%dT%H:%M:%SZ', 'now')) "
                  "ON CONFLICT(path) DO UPDATE SET reason = excluded.reason"),
      release_(database, "DELETE FROM quarantine WHERE path = ?") {}

std::int64_t DocumentWriter::store(const std::string& path) {
  add_store_.run(path);
  find_store_.bind(path).step();
  const std::int64_t id = find_store_.integer(0);
  find_store_.reset();
  return id;
}

std::unordered_map<std::string, KnownDocument> DocumentWriter::knownOf(std::int64_t store) {
  std::unordered_map<std::string, KnownDocument> all;
  all_rows_.bind(store);
  while (all_rows_.step()) all.emplace(all_rows_.text(0), knownAt(all_rows_, 1));
  all_rows_.reset();
  return all;
}

std::optional<DocumentWriter::Row> DocumentWriter::row(std::int64_t store, const std::string& name) {
  std::optional<Row> found;
  if (find_row_.bind(store, name).step()) found = Row{find_row_.integer(0), find_row_.text(1), knownAt(find_row_, 2)};
  find_row_.reset();
  return found;
}

std::optional<KnownDocument> DocumentWriter::known(std::int64_t store, const std::string& name) {
  const auto found = row(store, name);
  return found ? std::optional(found->known) : std::nullopt;
}

void DocumentWriter::quarantine(const std::string& path, const std::string& reason) { quarantine_.run(path, reason); }

void DocumentWriter::release(const std::string& path) { release_.run(path); }

std::int64_t DocumentWriter::setRow(std::int64_t store, const LoadedDocument& loaded,
                                    const std::optional<Row>& earlier) {
  const FileState document = loaded.rows ? loaded.document : FileState{};
  const FileState metadata = loaded.metadata_fault.empty() ? loaded.metadata : FileState{};
  // What is no file's hash, so that the content is taken once it can be read, whatever it is then.
  const std::string sha256 = loaded.rows ? loaded.sha256 : "";
  if (earlier) {
    change_row_.run(sha256, document.size, document.modified, document.inode, metadata.size, metadata.modified,
                    metadata.inode, earlier->id);
    return earlier->id;
  }
  add_row_.run(store, loaded.name, sha256, document.size, document.modified, document.inode, metadata.size,
               metadata.modified, metadata.inode);
  return database_.lastRow();
}

DocumentWriter::Outcome DocumentWriter::write(std::int64_t store, const LoadedDocument& loaded) {
  const auto earlier = row(store, loaded.name);
  const bool is_gone = !loaded.document.isThere() && loaded.document_fault.empty();
  if (is_gone) return Outcome::kGone;
  const std::int64_t document = setRow(store, loaded, earlier);
  if (!loaded.rows) return Outcome::kUnreadable;
  if (earlier && earlier->sha256 == loaded.sha256) return writeMetadata(document, loaded, earlier->known);
  return writeSet(store, document, loaded);
}

std::vector<std::string> DocumentWriter::unreadSets(std::int64_t store) {
  std::vector<std::string> names;
  all_unread_.bind(store);
  while (all_unread_.step()) names.push_back(all_unread_.text(0));
  all_unread_.reset();
  return names;
}

void DocumentWriter::dropUnread(std::int64_t store, const std::string& name) {
  drop_unread_.run(store, name);
  if (sqlite3_changes(database_.handle()) == 0) return;  // Another merge was faster, or it was read since.
  drop_row_.run(store, name);
  forgetRivals(store, name);
}

/// A document that is named by its set's place tells of files that could not be read. What else the list says must be
/// the same: another set may have come into the folder since.
void DocumentWriter::dropKnown() {
  sqlite::Transaction transaction(database_);
  database_.run(R"sql(
DELETE FROM sets WHERE id IN (
  SELECT s.id FROM sets s JOIN places p ON p.set_id = s.id AND p.place = s.name
    JOIN places q ON q.place = p.place JOIN sets o ON o.id = q.set_id AND o.name <> q.place
  WHERE NOT EXISTS (SELECT key, value FROM metadata WHERE set_id = s.id EXCEPT SELECT key, value FROM metadata WHERE set_id = o.id)
    AND NOT EXISTS (SELECT key, value FROM metadata WHERE set_id = o.id EXCEPT SELECT key, value FROM metadata WHERE set_id = s.id))
)sql");
  transaction.commit();
}

std::optional<DocumentWriter::Holder> DocumentWriter::holder(const std::string& name) {
  std::optional<Holder> found;
  if (find_holder_.bind(name).step()) {
    found = Holder{find_holder_.integer(0), find_holder_.integer(1), find_holder_.integer(2) != 0,
                   find_holder_.text(3),    find_holder_.text(4),    find_holder_.text(5)};
  }
  find_holder_.reset();
  return found;
}

/// One that need not be tried again comes before one that does, then the later one; hash and path only make it the same
/// in whatever order the stores are merged, also of copies that bear other metadata.
bool DocumentWriter::isBetter(std::int64_t store, const LoadedDocument& loaded, const Holder& holder) {
  const auto own = std::tie(loaded.rows->started, loaded.sha256);
  const auto other = std::tie(holder.started, holder.sha256);
  if (loaded.rows->retry != holder.retry) return holder.retry;
  return own != other ? own > other : pathOf(store) < holder.store;
}

std::string DocumentWriter::pathOf(std::int64_t store) {
  find_path_.bind(store).step();
  std::string path = find_path_.text(0);
  find_path_.reset();
  return path;
}

DocumentWriter::Outcome DocumentWriter::writeSet(std::int64_t store, std::int64_t document,
                                                 const LoadedDocument& loaded) {
  const auto earlier = holder(loaded.name);
  if (!earlier) {
    sets_.add(document, loaded.name, *loaded.rows, loaded.set);
    return Outcome::kAdded;
  }
  const bool is_own = earlier->document == document;
  // The row of an own document has the new hash by now, which is right: only an order by time can get worse.
  const bool is_better = isBetter(store, loaded, *earlier);
  if (!is_own && !is_better) return Outcome::kElsewhere;
  if (is_own && !is_better) forgetRivals(store, loaded.name);
  sets_.replace(earlier->set, document, *loaded.rows);
  if (loaded.metadata_fault.empty()) sets_.setMetadata(earlier->set, loaded.set);
  return Outcome::kReplaced;
}

void DocumentWriter::forgetRivals(std::int64_t store, const std::string& name) {
  forget_.run(store, name);
  forgotten_ += static_cast<std::size_t>(sqlite3_changes(database_.handle()));
}

DocumentWriter::Outcome DocumentWriter::writeMetadata(std::int64_t document, const LoadedDocument& loaded,
                                                      const KnownDocument& known) {
  if (!loaded.metadata_fault.empty() || known.metadata == loaded.metadata) return Outcome::kUnchanged;
  const auto set = holder(loaded.name);
  if (!set || set->document != document) return Outcome::kUnchanged;
  sets_.setMetadata(set->set, loaded.set);
  return Outcome::kRenewed;
}

}  // namespace polarline::results
