#include <array>

#include "check/explain/Tables.h"

namespace polarline {
namespace {

constexpr auto kExits = std::to_array<Entry>({
    {"exit 0", "done", "Done, and every limit holds.", ""},
    {"exit 1", "limit_exceeded", "A limit is exceeded.", "The table marks the figure and the pair."},
    {"exit 2", "unusable",
     "The command line or an input can't be used, or a pair ended the run behind others that have figures.",
     "The message names the file or pair, what was found and what was wanted."},
    {"exit 3", "no_figure", "The run ended without a figure.", "The message tells status and advice."},
    {"exit 4", "result_not_written", "A result could not be written.",
     "Try again when there is space and the right to write."},
    {"exit 130", "stopped", "Interrupted; nothing half was left.", "Run it again."},
});

}  // namespace

std::span<const Entry> exitEntries() { return kExits; }

}  // namespace polarline
