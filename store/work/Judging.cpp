#include "store/work/Judging.h"

#include <exception>

#include "check/set/SetIdentity.h"
#include "polarline/errors.h"
#include "polarline/exit_code.h"

namespace polarline {

Set filesOf(const BatchSet& set, const BatchOptions& options) {
  Set files = options.files;
  files.folder = set.folder;
  files.list.clear();
  return files;
}

std::string idOf(const Set& files, const BatchOptions& options) {
  try {
    return identityOf(files, options.check.pairs);
  } catch (const std::exception&) {  // The check says why.
    return {};
  }
}

Answer judgeInto(whole_file::PartialFile& file, const Set& files, const BatchOptions& options) {
  CheckDocument document([&file](const std::string& piece) { file.append(piece); });
  std::exception_ptr failure;
  CheckOptions check;
  check.limits = options.check.limits;
  check.settings = options.check.settings;
  check.refine = options.check.refine;
  check.pairs = options.check.pairs;
  check.keep_points = false;
  // What is thrown in the run would be taken for an end of the set.
  check.on_pair = [&](const PairCheck& pair, std::size_t /*count*/) {
    try {
      if (!failure) document.add(pair);
    } catch (const OutputError&) {
      failure = std::current_exception();
    }
  };
  check.go_on = [&] { return !failure && (!options.go_on || options.go_on()); };
  Answer judged = answerOf(files, check);
  if (failure) std::rethrow_exception(failure);
  if (judged.check.status.exit_code != kInterrupted) document.finish(judged.check);
  return judged;
}

}  // namespace polarline
