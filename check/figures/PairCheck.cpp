#include <algorithm>

#include "polarline/check.h"

namespace polarline {
namespace {

const Figure* named(const std::vector<Figure>& figures, const std::string& name) {
  const auto found = std::ranges::find_if(figures, [&](const Figure& each) { return name == each.name; });
  return found == figures.end() ? nullptr : &*found;
}

const FigureUncertainty* named(const std::vector<FigureUncertainty>& figures, const std::string& name) {
  const auto found = std::ranges::find(figures, name, &FigureUncertainty::name);
  return found == figures.end() ? nullptr : &*found;
}

}  // namespace

const Figure* PairCheck::figure(const std::string& name) const { return named(figures, name); }

const Figure* RefinedPair::figure(const std::string& name) const { return named(figures, name); }

const FigureUncertainty* PairCheck::uncertaintyOf(const std::string& name) const { return named(uncertainty, name); }

const FigureUncertainty* RefinedPair::uncertaintyOf(const std::string& name) const { return named(uncertainty, name); }

std::size_t Check::finished() const {
  return static_cast<std::size_t>(std::ranges::count_if(pairs, &PairCheck::finished));
}

}  // namespace polarline
