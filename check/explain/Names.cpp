#include "check/explain/Names.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace polarline {
namespace {

constexpr std::size_t kMostOffered = 3;

std::size_t changesBetween(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i);
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row.back();
}

std::string inSmallLetters(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return text;
}

}  // namespace

std::vector<std::string> nearest(const std::string& name, const std::vector<std::string>& names) {
  std::vector<std::pair<std::size_t, std::string>> near;
  const std::string wanted = inSmallLetters(name);
  for (const std::string& each : names) {
    const std::size_t changes = changesBetween(wanted, inSmallLetters(each));
    if (changes * 3 <= std::max(name.size(), each.size()) + 2) near.emplace_back(changes, each);
  }
  std::ranges::sort(near);
  std::vector<std::string> offered;
  for (std::size_t k = 0; k < std::min(near.size(), kMostOffered); ++k) offered.push_back(near[k].second);
  return offered;
}

std::string offer(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t k = 0; k < names.size(); ++k) {
    text += k == 0 ? "; did you mean " : (k + 1 == names.size() ? " or " : ", ");
    text += names[k];
  }
  return text.empty() ? text : text + "?";
}

}  // namespace polarline
