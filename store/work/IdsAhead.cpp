#include "store/work/IdsAhead.h"

#include "store/work/Judging.h"

namespace polarline {

std::string IdsAhead::idAt(std::size_t place) const { return idOf(filesOf(sets_.at(place), options_), options_); }

std::string IdsAhead::next() {
  std::string id = ahead_.valid() ? ahead_.get() : idAt(place_);
  if (++place_ < sets_.size()) ahead_ = std::async(std::launch::async, [this] { return idAt(place_); });
  return id;
}

}  // namespace polarline
