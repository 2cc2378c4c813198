#include <cstdlib>
#include <string>

#include "fuzz/Harness.h"
#include "polarline/errors.h"
#include "polarline/report.h"

// A document that is accepted makes a page in which nothing but the template's own is markup.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto scripts = [](const std::string& page) {
    std::size_t count = 0;
    for (std::size_t at = page.find("<script"); at != std::string::npos; at = page.find("<script", at + 1)) ++count;
    return count;
  };
  try {  // Any other exception is a finding.
    const std::string page = polarline::reportPage({{std::string(data, data + size), ""}});
    static const std::size_t own = scripts(page);
    if (scripts(page) != own) std::abort();
  } catch (const polarline::InputError&) {
    return 0;
  }
  return 0;
}
