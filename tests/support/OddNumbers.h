#pragma once

#include <PolarLinePrecision.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <cstddef>
#include <ctime>
#include <exception>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "support/ConsoleCapture.h"
#include "support/FigureText.h"

/// Numbers that no input should hold.
namespace odd_numbers {

inline constexpr std::array kTexts = {"nan", "-inf", "1e308", "4.9e-324", "-0", "2147483647", "-2147483648"};

/// For documents, whose readers know infinity, and for sizes of 16 bits.
inline constexpr std::array kDocumentTexts = {"nan",      ".Nan", ".Inf",  "-.Inf",      "1e308",
                                              "4.9e-324", "-0.0", "65535", "2147483647", "-2147483648"};

/// For records of floats and of doubles: a double beyond all floats becomes infinite on its way.
template <typename Number>
inline constexpr std::array<Number, 5> kValues = {
    std::numeric_limits<Number>::quiet_NaN(), -std::numeric_limits<Number>::infinity(),
    std::numeric_limits<Number>::max(), std::numeric_limits<Number>::denorm_min(), -Number{0}};

/// A number in a text.
struct Place {
  std::size_t at;
  std::size_t length;
};

/// The numbers of a text that stand alone: behind a blank, a separator or an opening bracket, and not in a comment.
inline std::vector<Place> placesIn(const std::string& text) {
  std::vector<Place> places;
  std::size_t at = text.starts_with('%') || text.starts_with('#') ? text.find('\n') : 0;
  while ((at = text.find_first_of("0123456789-", at)) != std::string::npos) {
    const std::size_t end = std::min(text.find_first_not_of("0123456789.eE+-", at), text.size());
    const bool alone = at == 0 || std::string(" :,[\n\t").find(text[at - 1]) != std::string::npos;
    const bool digits = text.substr(at, end - at).find_first_of("0123456789") != std::string::npos;
    if (alone && digits) places.push_back({at, end - at});
    at = end;
  }
  return places;
}

inline std::string replaced(const std::string& text, const Place& place, const std::string& number) {
  std::string changed = text;
  return changed.replace(place.at, place.length, number);
}

/// Makes calls that must end, whatever their input holds, and a good one between them.
class Calls {
 public:
  using Results = std::vector<PolarResultRecord>;
  using Call = std::function<std::int32_t(Results&)>;

  explicit Calls(Call good) : good_(std::move(good)), reference_(outcomeOf(good_)) {}

  /// The call ends soon, in a status that is listed or in an exception of the standard library's family.
  void expectEnds(const std::string& what, const Call& call) {
    constexpr double kLongestSeconds = 20.0;
    const std::clock_t start = std::clock();
    try {
      const ConsoleCapture quiet;
      Results results;
      const std::int32_t status = call(results);
      EXPECT_TRUE(kStatuses.contains(status)) << what << " gives " << status;
    } catch (const std::exception&) {
      // The other lawful end.
    }
    EXPECT_LT(static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC, kLongestSeconds) << what;
  }

  void expectGood(const std::string& what) { EXPECT_TRUE(outcomeOf(good_) == reference_) << "after " << what; }

  /// Puts every number of the list into every place of a text, one at a time.
  template <typename Texts>
  void sweep(const std::string& text, const Texts& numbers, const std::function<Call(const std::string&)>& callOn) {
    for (const Place& place : placesIn(text)) {
      ++replaced_;
      const std::string what = text.substr(text.rfind('\n', place.at) + 1, 40);
      for (std::size_t k = 0; k < numbers.size(); ++k) {
        if (!isTried(k)) continue;
        expectEnds(what + " at " + std::to_string(place.at) + " = " + numbers[k],
                   callOn(replaced(text, place, numbers[k])));
      }
      expectGood(what);
    }
  }

  /// Puts every odd value into a number, which is as before afterwards.
  template <typename Number>
  void sweepNumber(const std::string& what, Number& number, const Call& call) {
    ++replaced_;
    const Number kept = number;
    for (std::size_t k = 0; k < kValues<Number>.size(); ++k) {
      if (!isTried(k)) continue;
      number = kValues<Number>[k];
      expectEnds(what + " = " + std::to_string(number), call);
    }
    number = kept;
    expectGood(what);
  }
  template <typename List>
  void sweepNumbers(const std::string& what, List& numbers, const Call& call) {
    for (auto& number : numbers) sweepNumber(what + "[" + std::to_string(&number - numbers.data()) + "]", number, call);
  }

  /// Numbers that were replaced, each by every odd one, or, under the sanitizers, which take six times as long, by a
  /// third of them, the next number by the next third.
  std::size_t replacedNumbers() const { return replaced_; }

 private:
  bool isTried(std::size_t k) const { return (k + replaced_) % EVERY_NTH_ODD_NUMBER == 0; }
  static std::string outcomeOf(const Call& call) {
    const ConsoleCapture quiet;
    Results results;
    const std::int32_t status = call(results);
    EXPECT_EQ(status, 0);
    EXPECT_FALSE(results.empty());
    return FigureText::of(results);
  }

  inline static const std::set<std::int32_t> kStatuses = {0, 3, 4, 8, -4, -5, -6, -8, -9, -10, -11, -13};

  Call good_;
  std::string reference_;
  std::size_t replaced_ = 0;
};

/// The most memory that the process has had so far, in bytes.
inline std::size_t peakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

}  // namespace odd_numbers
