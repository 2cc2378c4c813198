#include "report/words/GivenUpAdvice.h"

#include "check/judge/DetectCommand.h"
#include "polarline/explain.h"

namespace polarline {

std::string inSetFolder(std::string advice, bool without_folders) {
  const bool names_files = advice.find("polarline detect ") != std::string::npos;
  if (without_folders && names_files) advice += " Run it in the set's folder.";
  return advice;
}

GivenUpAdvice givenUpAdvice(const Check& check, const PairCheck& pair, bool without_folders) {
  const auto explained = pair.finished ? std::nullopt : explainPair(pair.reason.code);
  if (!explained) return {};
  const std::string advice = withDetectCommand(explained->advice, check, pair.index, pair.reason.side);
  return {explained->name, explained->meaning, inSetFolder(advice, without_folders)};
}

}  // namespace polarline
