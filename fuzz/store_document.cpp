#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>

#include "fuzz/Harness.h"
#include "store/results/JsonCursor.h"
#include "store/results/ReadDocument.h"
#include "store/results/ReadMetadata.h"

using namespace polarline::results;

namespace {

template <typename Reader>
void isReadOrRefused(const std::string& text, Reader&& reader) {
  try {  // Any other exception is a finding.
    reader(text);
  } catch (const JsonFault&) {
    return;
  }
  if (!nlohmann::json::accept(text, false)) std::abort();
}

}  // namespace

// What a merge takes as a document, or as metadata, is JSON, and what is JSON can be passed over.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  isReadOrRefused(text, [](const std::string& bytes) { readDocument(bytes); });
  isReadOrRefused(text, [](const std::string& bytes) { readMetadata(bytes); });
  return 0;
}
