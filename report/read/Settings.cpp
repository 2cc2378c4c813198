#include "report/read/Settings.h"

namespace polarline {

double settingOf(const Json& document, const char* key, double otherwise) {
  const auto found = document["settings"].find(key);
  return found != document["settings"].end() && found->is_number() ? found->get<double>() : otherwise;
}

}  // namespace polarline
