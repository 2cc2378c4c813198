#pragma once

#include <locale>
#include <string>

/// While it lives, the process has a locale that writes one thousand and a half as 1.000,5.
class CommaLocale {
 public:
  CommaLocale() : kept_(std::locale::global(std::locale(std::locale::classic(), new Punctuation))) {}
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() { std::locale::global(kept_); }

 private:
  struct Punctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::locale kept_;
};
