#pragma once

#include <vector>

#include "check/refined/RefinedPictures.h"
#include "polarline/check.h"

namespace polarline {

/// What can be doubted of refined figures; each thing is warned of once, with the first pair that shows it.
class RefinedWarnings {
 public:
  void look(const PairCheck& pair, const RefinedPair& refined, const RefinedPictures& pictures);

  std::vector<Warning> list;

 private:
  void lookAtStates(std::size_t pair, const RefinedPicture& picture, const char* side);
  bool isNew(const char* code) const;
};

}  // namespace polarline
