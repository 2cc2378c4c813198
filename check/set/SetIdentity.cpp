#include "check/set/SetIdentity.h"

#include <algorithm>

#include "check/set/ChosenPairs.h"
#include "check/set/Fingerprint.h"
#include "check/set/PictureSource.h"

namespace polarline {

std::vector<SetInput> namedFiles(const Set& set) {
  std::vector<SetInput> inputs;
  for (const auto& [role, path] : {std::pair{"polar", &set.polar},
                                   {"target", &set.target},
                                   {"calibration", &set.calibration},
                                   {"list", &set.list},
                                   {"board", &set.board},
                                   {"limits", &set.limits},
                                   {"rectified", &set.rectified}}) {
    if (!path->empty()) inputs.push_back({role, *path, ""});
  }
  return inputs;
}

std::vector<SetInput> hashedFiles(const Set& set) {
  std::vector<SetInput> inputs = namedFiles(set);
  for (SetInput& input : inputs) input.sha256 = sha256OfFile(input.path);
  return inputs;
}

std::string changedFile(const std::vector<SetInput>& before, const Set& set) {
  const std::vector<SetInput> now = hashedFiles(set);
  for (std::size_t k = 0; k < std::max(before.size(), now.size()); ++k) {
    const SetInput& one = k < before.size() ? before[k] : now[k];
    const bool is_same = k < before.size() && k < now.size() && one.path == now[k].path && one.sha256 == now[k].sha256;
    if (!is_same || one.sha256.empty()) return one.path;
  }
  return {};
}

std::string identityOf(const Set& named, const std::optional<std::pair<std::size_t, std::size_t>>& pairs) {
  const Set set = openSet(named);
  std::vector<SetInput> inputs = hashedFiles(set);
  ListedPictures listed(chosenPairs(listedPairs(set.list), pairs), pairs ? pairs->first : 0);
  const std::vector<SetInput> pictures = listed.inputs();
  inputs.insert(inputs.end(), pictures.begin(), pictures.end());
  return areAllRead(inputs) ? fingerprint(inputs) : std::string();
}

bool areAllRead(const std::vector<SetInput>& inputs) {
  return std::ranges::none_of(inputs, [](const SetInput& input) { return input.sha256.empty(); });
}

}  // namespace polarline
