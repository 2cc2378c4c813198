#include "tools/polarline/Outputs.h"

#include <filesystem>
#include <system_error>

#include "polarline/errors.h"

namespace command {
namespace {

namespace fs = std::filesystem;

bool isFile(const Output& output) { return !output.path.empty() && output.path != "-"; }

/// The same file, or the same name of one that is not there yet. A device is nobody's content.
bool isSame(const std::string& a, const std::string& b) {
  std::error_code failure;
  if (fs::is_character_file(a, failure) || fs::is_fifo(a, failure)) return false;
  if (fs::equivalent(a, b, failure) && !failure) return true;
  const fs::path first = fs::weakly_canonical(a, failure);
  return !failure && first == fs::weakly_canonical(b, failure) && !failure;
}

}  // namespace

void requireSeparate(const std::vector<Output>& outputs, const std::vector<std::string>& inputs) {
  for (std::size_t k = 0; k < outputs.size(); ++k) {
    if (!isFile(outputs[k])) continue;
    const std::string another = std::string("; name another file for ") + outputs[k].option;
    for (const std::string& input : inputs) {
      if (isSame(outputs[k].path, input)) throw polarline::InputError(outputs[k].path, "is an input" + another);
    }
    for (std::size_t j = 0; j < k; ++j) {
      if (isFile(outputs[j]) && isSame(outputs[k].path, outputs[j].path))
        throw polarline::InputError(outputs[k].path, std::string("takes the result of ") + outputs[j].option + another);
    }
  }
}

}  // namespace command
