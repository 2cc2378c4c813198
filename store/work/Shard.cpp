#include <fmt/format.h>

#include <charconv>
#include <cstddef>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "polarline/batch.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

std::optional<std::size_t> wholeNumber(const std::string& text) {
  std::size_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

using Environment = std::function<std::string(const char*)>;

/// The variable's number; `otherwise` where it is not set.
std::size_t numberOf(const Environment& variable, const char* name, std::size_t otherwise) {
  const std::string text = variable(name);
  if (text.empty()) return otherwise;
  const auto number = wholeNumber(text);
  if (!number) throw InputError(name, "'" + text + "' was found; a number was wanted, or --shard K/N beside it");
  return *number;
}

}  // namespace

Shard parseShard(const std::string& text) {
  const std::size_t stroke = text.find('/');
  const auto number = wholeNumber(text.substr(0, stroke));
  const auto of = stroke == std::string::npos ? std::nullopt : wholeNumber(text.substr(stroke + 1));
  if (!number || !of || *number == 0 || *number > *of)
    throw InputError("--shard " + text, "K/N was wanted: part K of N, counted from 1, such as 2/8");
  return {*number, *of};
}

Shard shardOfArray(const Environment& variable) {
  if (variable("SLURM_ARRAY_TASK_ID").empty()) return {};
  const std::size_t id = numberOf(variable, "SLURM_ARRAY_TASK_ID", 0);
  const std::size_t first = numberOf(variable, "SLURM_ARRAY_TASK_MIN", 1);
  const std::size_t step = numberOf(variable, "SLURM_ARRAY_TASK_STEP", 1);
  const std::size_t count = numberOf(variable, "SLURM_ARRAY_TASK_COUNT", 0);
  const std::size_t last = numberOf(variable, "SLURM_ARRAY_TASK_MAX", first + (count > 0 ? count - 1 : 0) * step);
  const bool is_even = step > 0 && last >= first && id >= first && id <= last && (id - first) % step == 0 &&
                       (count == 0 || (last - first) / step + 1 == count);
  if (!is_even)
    throw InputError("SLURM_ARRAY_TASK_ID",
                     fmt::format("task {} of {} from {} to {} by {}: an array without gaps was wanted, such as "
                                 "--array=1-8, or --shard K/N for each task",
                                 id, count, first, last, step));
  return {(id - first) / step + 1, (last - first) / step + 1};
}

std::vector<BatchSet> setsOf(const std::vector<BatchSet>& sets, const Shard& shard) {
  std::vector<BatchSet> chosen;
  for (std::size_t k = shard.number - 1; k < sets.size(); k += shard.of) chosen.push_back(sets[k]);
  return chosen;
}

}  // namespace polarline
