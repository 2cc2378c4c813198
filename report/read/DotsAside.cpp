#include "report/read/DotsAside.h"

#include <cstddef>
#include <utility>

#include "polarline/errors.h"

namespace polarline {

bool DotsAside::isPoints(std::size_t depth) const {
  // pairs[k].points, pairs[k].refined.points
  const bool is_refined = depth == 4 && keys_[3] == "refined";
  return (depth == 3 || is_refined) && keys_[1] == "pairs" && keys_[depth] == "points";
}

bool DotsAside::operator()(int depth, Json::parse_event_t event, Json& parsed) {
  const auto at = static_cast<std::size_t>(depth);
  if (event == Json::parse_event_t::key) {
    if (keys_.size() <= at) keys_.resize(at + 1);
    keys_[at] = parsed.get_ref<const std::string&>();
  }
  if (event != Json::parse_event_t::object_end || at >= keys_.size() || !isPoints(at)) return true;
  try {
    lists_.push_back(readDots(Place(parsed, "")));
  } catch (const InputError&) {
    return true;  // It is refused where its place is known.
  }
  // Nothing in a text is parsed to one of these.
  parsed = Json::binary({}, lists_.size() - 1);
  return true;
}

DotLists DotsAside::take(const Place& owner) {
  const auto found = owner.json().find("points");
  if (found == owner.json().end() || !found->is_binary()) return readDots(owner.object("points"));
  return std::move(lists_.at(found->get_binary().subtype()));
}

}  // namespace polarline
