#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

/// A call through the exports that can be made again and again with the same outcome.
struct RepeatedCall {
  using Files = std::map<std::string, std::string>;

  /// Takes back what the former call left, on disk and in the caller's hands.
  std::function<void()> reset;
  /// The exported call and nothing else; its status.
  std::function<std::int32_t()> make;
  /// What the caller holds, as a text.
  std::function<std::string()> held;
  /// Whether a failure leaves what the caller held.
  bool keeps = true;
  /// A function of a library below that loses its own blocks when memory is refused in it, and so is left alone.
  std::string spared_function;
  /// The tables on disk, earlier ones among them.
  std::function<Files()> tables = [] { return Files(); };
};

/// What a sweep looked at.
struct Swept {
  std::size_t allocations = 0;  ///< Of one undisturbed call.
  std::size_t places = 0;       ///< That allocate.
  std::size_t points = 0;       ///< First and last allocation of each place.
  std::size_t tried = 0;        ///< Points at which memory was refused.
};

/// Refuses memory at the first and at the last allocation of every place of a call, or, when these are more than
/// `most`, at every second, every third... of them in the order of the call; at every fourth of those that are tried
/// also for the rest of the call. Each time it expects that
///  - the call ends in an exception of the memory or in a status, the caller then holding what it held before, or ends
///    as an undisturbed one does;
///  - each table on disk is the undisturbed one as far as it goes;
///  - every block is free again;
///  - the next call gives what an undisturbed one gives.
Swept refuseMemoryEverywhere(const RepeatedCall& call, std::size_t most);
