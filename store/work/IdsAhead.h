#pragma once

#include <cstddef>
#include <future>
#include <string>
#include <vector>

#include "polarline/batch.h"

namespace polarline {

/// The ids of a list's sets, each made by a thread of its own while the set before is judged: its files are then in
/// memory when its own turn comes.
class IdsAhead {
 public:
  /// All outlive this.
  IdsAhead(const std::vector<BatchSet>& sets, const BatchOptions& options) : sets_(sets), options_(options) {}

  /// In the list's order.
  std::string next();

 private:
  std::string idAt(std::size_t place) const;

  const std::vector<BatchSet>& sets_;
  const BatchOptions& options_;
  std::size_t place_ = 0;
  std::future<std::string> ahead_;
};

}  // namespace polarline
