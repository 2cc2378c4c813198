#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "diagnose/warnings/PairLook.h"
#include "polarline/warning.h"

namespace diagnose {

/// What limits ask of figures that may mean nothing.
struct AskedLimits {
  std::vector<std::string> figures;  ///< Names of figures that a limit judges.
  std::optional<double> most_row;    ///< Smallest upper bound of `dy_means`.
};

/// Watches the inputs of a run pair by pair, and tells at the end what makes its figures worthless. Keeps about a
/// kilobyte a pair, and the dots of some.
class Watch {
 public:
  explicit Watch(SetFacts facts);

  /// Looks at a pair when the run is done with it.
  polarline::PairQuality look(const PairView& view);
  /// Each cause once.
  std::vector<polarline::Warning> warnings(const AskedLimits& limits) const;

 private:
  void noteWorst();
  void dropSights();

  SetFacts facts_;
  std::optional<CalibratedPair> cameras_;
  std::vector<PairLook> looks_;
  std::optional<std::pair<std::size_t, std::size_t>> worst_;  ///< Look and side of the largest misfit.
  std::size_t step_ = 1;                                      ///< Of every so many looks the dots are kept.
};

}  // namespace diagnose
