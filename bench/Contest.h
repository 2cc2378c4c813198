#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// How long a contest may take.
struct Effort {
  double seconds = 3.0;    ///< Of processor time for each contest.
  std::size_t fewest = 5;  ///< Rounds, also where they take longer.
  std::size_t most = 25;   ///< Rounds, also where they take less.
  bool warm_up = true;     ///< One round first that does not count.
};

/// One of those that run against each other: the same picture, the same round.
struct Contestant {
  std::string name;
  std::function<void()> run;
};

/// Middle value and the two quartiles of repeated times.
struct Spread {
  double middle = 0.0, low = 0.0, high = 0.0;
};

Spread spreadOf(std::vector<double> values);

/// Times of contestants that took turns: first each once, then each once more. What slows the machine down slows all of
/// them, so that the ratios within a round stay.
class Contest {
 public:
  Contest(const std::vector<Contestant>& contestants, const Effort& effort);

  std::size_t rounds() const { return milliseconds_.empty() ? 0 : milliseconds_.front().size(); }
  /// Milliseconds of processor time of a contestant.
  Spread time(std::size_t contestant) const { return spreadOf(milliseconds_.at(contestant)); }
  /// Of one contestant's time over another's, formed in each round.
  Spread ratio(std::size_t contestant, std::size_t other) const;

 private:
  std::vector<std::vector<double>> milliseconds_;
};
