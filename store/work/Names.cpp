#include "store/work/Names.h"

#include <filesystem>
#include <system_error>

#include "check/set/Fingerprint.h"

namespace polarline::names {

/// A limit or a key may hold any byte but a line's end.
std::string settingsHash(const CheckOptions& options) {
  std::string text = options.refine ? "refine\n" : "";
  if (options.pairs)
    text += "pairs " + std::to_string(options.pairs->first) + "-" + std::to_string(options.pairs->second) + "\n";
  for (const std::string& limit : options.limits) text += "limit " + limit + "\n";
  for (const std::string& setting : options.settings) text += "set " + setting + "\n";
  return sha256(text);
}

std::string byId(const std::string& id, const std::string& settings) {
  return sha256("id " + id + "\nsettings " + settings + "\n");
}

std::string byPath(const std::string& folder, const std::string& settings) {
  std::error_code failure;
  const std::filesystem::path path = std::filesystem::absolute(folder, failure).lexically_normal();
  const std::filesystem::path named = path.has_filename() ? path : path.parent_path();
  return sha256("path " + (failure ? folder : named.string()) + "\nsettings " + settings + "\n");
}

}  // namespace polarline::names
