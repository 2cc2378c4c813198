#pragma once

#include <filesystem>

#include "store/work/StoreFolder.h"

namespace polarline {

/// Stands in the root of a store while a worker works there. One that was killed leaves it, by which others know that
/// there may be more to clear up: to list all folders of a large store at each beginning would take too long.
class WorkerSign {
 public:
  /// Without one where the store can't take it.
  explicit WorkerSign(const StoreFolder& store);
  WorkerSign(const WorkerSign&) = delete;
  WorkerSign& operator=(const WorkerSign&) = delete;
  ~WorkerSign();

 private:
  std::filesystem::path path_;
};

/// Removes what is half written in a store and will never be finished: by processes of this machine that have ended,
/// and what is older than a day, by the store's clock, where nobody claims its document. In the root always, in the
/// folders of documents where a worker's sign was left. What a living worker writes stays. What can't be listed or
/// removed stays, too. So go the copies of sets that checks of this machine left in the temporary folder when they
/// died.
void sweep(const StoreFolder& store);

}  // namespace polarline
