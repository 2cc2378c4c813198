#include "store/results/StoreMerge.h"

#include <algorithm>
#include <cstddef>
#include <future>
#include <system_error>
#include <utility>

namespace polarline::results {
namespace {

/// Documents of a transaction: few enough for another merge to get its turn within a second, and for what is lost with
/// a process to be soon read again.
constexpr std::size_t kBatch = 256;

}  // namespace

StoreMerge::StoreMerge(const sqlite::Database& database, DocumentWriter& writer, std::filesystem::path store)
    : database_(database), writer_(writer), store_(std::move(store)) {
  sqlite::Transaction transaction(database);
  number_ = writer.store(store_.string());
  transaction.commit();
}

void StoreMerge::run(const MergeOptions& options, MergeResult& result) {
  const std::vector<Work> work = findWork(result);
  // The next documents are read while those before them are written.
  std::future<Loaded> next;
  const auto begin_loading = [&](std::size_t begin) {
    if (begin < work.size()) next = std::async(std::launch::async, [this, &work, begin] { return load(work, begin); });
  };
  begin_loading(0);
  for (std::size_t begin = 0; begin < work.size(); begin += kBatch) {
    Loaded loaded = next.get();
    begin_loading(begin + kBatch);
    write(work, begin, loaded, result);
    if (options.on_progress) options.on_progress(begin + loaded.size(), work.size());
  }
  dropGone();
}

/// A set whose files could not be read is named by its folder, and by what it holds once they could be.
void StoreMerge::dropGone() {
  sqlite::Transaction transaction(database_);
  for (const std::string& name : writer_.unreadSets(number_)) {
    std::error_code failure;
    if (!std::filesystem::exists(documentPath(store_, name), failure) && !failure) writer_.dropUnread(number_, name);
  }
  transaction.commit();
}

std::vector<StoreMerge::Work> StoreMerge::findWork(MergeResult& result) {
  const std::vector<FoundDocument> found = walkStore(store_);
  const auto known = writer_.knownOf(number_);
  std::vector<Work> work;
  for (const FoundDocument& each : found) {
    const auto earlier = known.find(each.name);
    if (earlier == known.end())
      work.push_back({each.name, std::nullopt});
    else if (earlier->second != KnownDocument{each.document, each.metadata})
      work.push_back({each.name, earlier->second});
  }
  result.documents += found.size();
  result.unchanged += found.size() - work.size();
  return work;
}

StoreMerge::Loaded StoreMerge::load(const std::vector<Work>& work, std::size_t begin) const {
  Loaded loaded;
  const std::size_t end = std::min(begin + kBatch, work.size());
  for (std::size_t k = begin; k < end; ++k) loaded.push_back(loadDocument(store_, work[k].name));
  return loaded;
}

void StoreMerge::write(const std::vector<Work>& work, std::size_t begin, Loaded& loaded, MergeResult& result) {
  sqlite::Transaction transaction(database_);
  for (std::size_t k = 0; k < loaded.size(); ++k) {
    // Another merge was faster: what it saw may be later than what was read here, so it is read again, now that nobody
    // else writes.
    if (writer_.known(number_, loaded[k].name) != work[begin + k].known)
      loaded[k] = loadDocument(store_, loaded[k].name);
    count(loaded[k], writer_.write(number_, loaded[k]), result);
  }
  transaction.commit();
}

void StoreMerge::tell(const std::filesystem::path& path, const std::string& fault, MergeResult& result) {
  if (fault.empty()) return writer_.release(path.string());
  writer_.quarantine(path.string(), fault);
  result.unreadable.push_back({path.string(), fault});
}

void StoreMerge::count(const LoadedDocument& loaded, DocumentWriter::Outcome outcome, MergeResult& result) {
  using enum DocumentWriter::Outcome;
  tell(documentPath(store_, loaded.name), loaded.document_fault, result);
  tell(metadataPath(store_, loaded.name), loaded.metadata_fault, result);
  switch (outcome) {
    case kAdded:
      ++result.added;
      break;
    case kReplaced:
      ++result.replaced;
      break;
    case kRenewed:
      ++result.renewed;
      break;
    case kElsewhere:
      ++result.elsewhere;
      break;
    case kUnchanged:
      ++result.unchanged;
      break;
    case kUnreadable:
      break;
    case kGone:
      --result.documents;
      break;
  }
}

}  // namespace polarline::results
