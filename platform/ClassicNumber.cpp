#include "platform/ClassicNumber.h"

#include <clocale>
#include <cstdlib>

#if defined(__APPLE__)
#include <xlocale.h>
#endif

namespace classic {

#if defined(_WIN32)

double toDouble(const std::string& text) {
  static const _locale_t classic_locale = _create_locale(LC_ALL, "C");
  return _strtod_l(text.c_str(), nullptr, classic_locale);
}

#else

double toDouble(const std::string& text) {
  static const locale_t classic_locale = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(text.c_str(), nullptr, classic_locale);
}

#endif

}  // namespace classic
