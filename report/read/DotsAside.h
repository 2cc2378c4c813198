#pragma once

#include <string>
#include <vector>

#include "report/read/DotLists.h"
#include "report/read/Json.h"

namespace polarline {

/// Takes the dots out of a document while it is parsed: as lists of numbers they need a fraction of what they need as
/// JSON, and they are nearly all of it.
class DotsAside {
 public:
  /// For `Json::parse`. Every `points` of a pair, or of its refined form, becomes a mark, but for one that can't be
  /// read, which stays what it is.
  bool operator()(int depth, Json::parse_event_t event, Json& parsed);

  /// Of a pair, or of its refined form, whose points are a mark or stayed in the document. Throws `InputError`.
  DotLists take(const Place& owner);

 private:
  bool isPoints(std::size_t depth) const;

  std::vector<std::string> keys_;  ///< Of the open objects, by their depth.
  std::vector<DotLists> lists_;
};

}  // namespace polarline
