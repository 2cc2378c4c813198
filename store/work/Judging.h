#pragma once

#include <string>

#include "check/run/Answer.h"
#include "platform/WholeFile.h"
#include "polarline/batch.h"

namespace polarline {

/// The files of a set of the list, those that the options name in place of its own.
Set filesOf(const BatchSet& set, const BatchOptions& options);

/// The id of a set; empty where its files can't be read.
std::string idOf(const Set& files, const BatchOptions& options);

/// Checks a set and writes its document, to the letter what `polarline check --json` writes, while it runs. Nothing is
/// committed. Of a check that was ended (`kInterrupted`) the document is not whole. Throws `OutputError`.
Answer judgeInto(whole_file::PartialFile& file, const Set& files, const BatchOptions& options);

}  // namespace polarline
