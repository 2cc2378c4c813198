#include "diagnose/causes/CauseWords.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "platform/PlainNumber.h"

namespace cause_words {
namespace {

struct Words {
  const char* name;
  const char* unit;
  double scale;      ///< From the unit of `Misalignment` to that of the words.
  const char* more;  ///< Clause of a value above 0, with a place for its size.
  const char* less;
};

/// Pixels of mean row difference: dots that are found at all are found better than that.
constexpr double kMostNoise = 0.5;
/// Standard errors.
constexpr double kSure = 3.0;
constexpr double kDegrees = 180.0 / std::numbers::pi;
constexpr std::array<Words, kCauses> kWords{{
    {"rotation_x", "deg", kDegrees, "the right camera looks down by {} degrees",
     "the right camera looks up by {} degrees"},
    {"rotation_y", "deg", kDegrees, "the right camera looks to the left by {} degrees",
     "the right camera looks to the right by {} degrees"},
    {"rotation_z", "deg", kDegrees,
     "the right camera is rolled to the left by {} degrees (its picture turns clockwise)",
     "the right camera is rolled to the right by {} degrees (its picture turns counter-clockwise)"},
    {"focal_ratio", "", 100.0, "the focal length of the right camera is {} % longer, against the left one's",
     "the focal length of the right camera is {} % shorter, against the left one's"},
    {"row_offset", "px", 1.0, "the principal point of the right camera is {} px lower",
     "the principal point of the right camera is {} px higher"},
    {"baseline_y", "board unit", 1.0, "the right camera stands {} board units higher",
     "the right camera stands {} board units lower"},
    {"baseline_z", "board unit", 1.0, "the right camera stands {} board units further back",
     "the right camera stands {} board units further forward"},
    {"k1", "", 1.0, "the first lens coefficient (k1) of the right camera is {} more",
     "the first lens coefficient (k1) of the right camera is {} less"},
}};

const Words& wordsOf(CauseKind kind) { return kWords[static_cast<std::size_t>(kind)]; }

CauseKind kindAt(std::size_t place) { return static_cast<CauseKind>(place); }

std::string capital(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return text;
}

std::string listOf(const std::vector<std::string>& items, const char* last) {
  std::string text;
  for (std::size_t k = 0; k < items.size(); ++k) {
    if (k > 0) text += k + 1 == items.size() ? last : "; ";
    text += items[k];
  }
  return text;
}

std::vector<std::size_t> membersOf(const FoundCauses& found, int group) {
  std::vector<std::size_t> members;
  for (std::size_t k = 0; k < kCauses; ++k) {
    if (found.choice.named.test(k) && found.choice.group[k] == group) members.push_back(k);
  }
  return members;
}

/// What would tell the members of a group apart.
const char* remedyOf(const std::vector<std::size_t>& members) {
  const auto has = [&](CauseKind kind) { return std::ranges::count(members, static_cast<std::size_t>(kind)) > 0; };
  if (has(CauseKind::kBaselineY) || has(CauseKind::kBaselineZ)) {
    return "take pictures at two distances, one at least half as far again as the other, with the board tilted";
  }
  return "take pictures with dots up to the edges and corners of both pictures, at two distances";
}

std::string ofGroup(const FoundCauses& found, int group) {
  const std::vector<std::size_t> members = membersOf(found, group);
  std::vector<std::string> alone;
  std::vector<std::string> names;
  for (const std::size_t k : members) {
    names.emplace_back(nameOf(kindAt(k)));
    if (found.alone[k]) alone.push_back(clause(kindAt(k), *found.alone[k]));
  }
  const std::string listed = listOf(names, " and ");
  const std::string remedy = remedyOf(members);
  if (alone.empty()) {
    return fmt::format(
        "These pictures do not tell {} apart, and more than one of them is needed; to tell them apart, {}.", listed,
        remedy);
  }
  return fmt::format("{}; these pictures do not tell {} apart: {}.",
                     alone.size() == 1 ? fmt::format("Most simply {}", alone[0])
                                       : capital("either " + listOf(alone, "; or ") + "; or some of each"),
                     listed, remedy);
}

/// Outliers that make a mean by more than a tenth must be told beside it.
bool outliersCount(const FoundCauses& found, double with, double without) {
  return found.outliers > 0 && with > 1.1 * without;
}

std::string outliersText(const FoundCauses& found) {
  return found.outliers == 1 ? "1 dot that is far off" : fmt::format("{} dots that are far off", found.outliers);
}

std::string restText(const FoundCauses& found) {
  if (found.kept_after <= kMostNoise && outliersCount(found, found.rows_after, found.kept_after)) {
    return fmt::format("; without {}, what remains is {} px, the noise.", outliersText(found),
                       plain::rounded(found.kept_after, 3));
  }
  return found.rows_after > kMostNoise ? "; what remains is more than noise." : "; what remains is noise.";
}

std::string rowsText(const FoundCauses& found) {
  std::string text = fmt::format("With that taken out the rows should differ by {} px in the mean instead of {} px",
                                 plain::rounded(found.rows_after, 3), plain::rounded(found.rows_before, 3));
  if (!hasPattern(found)) return text + restText(found);
  return text + fmt::format(
                    "; of what remains {} px are alike in neighbouring dots, which none of these causes "
                    "explains: look at the board's flatness, the focus and the lens calibration.",
                    plain::rounded(found.alike.smooth_rms, 2));
}

std::string withoutCause(const FoundCauses& found) {
  if (found.rows_before > kMostNoise) {
    return fmt::format(
        "The rows differ by {} px in the mean, and no turn or shift of the cameras explains that: look whether the "
        "two pictures of each pair belong together, and at the board's numbers.",
        plain::rounded(found.rows_before, 3));
  }
  if (!hasPattern(found) && outliersCount(found, found.rows_before, found.kept_before)) {
    return fmt::format(
        "No cause is needed: without {} the rows differ by {} px in the mean, which is the noise; with {} by {} px.",
        outliersText(found), plain::rounded(found.kept_before, 3), found.outliers == 1 ? "it" : "them",
        plain::rounded(found.rows_before, 3));
  }
  if (!hasPattern(found)) {
    return fmt::format("No cause is needed: the rows differ by {} px in the mean, which is the noise.",
                       plain::rounded(found.rows_before, 3));
  }
  return fmt::format(
      "None of the causes known explains the row differences of {} px in the mean, and {} px of "
      "them are alike in neighbouring dots: look at the board's flatness, the focus and the lens "
      "calibration.",
      plain::rounded(found.rows_before, 3), plain::rounded(found.alike.smooth_rms, 2));
}

}  // namespace

const char* nameOf(CauseKind kind) { return wordsOf(kind).name; }
const char* unitOf(CauseKind kind) { return wordsOf(kind).unit; }

double told(CauseKind kind, double value) { return wordsOf(kind).scale == kDegrees ? value * kDegrees : value; }

std::string clause(CauseKind kind, double value) {
  const Words& words = wordsOf(kind);
  const std::string size = plain::rounded(std::abs(value) * words.scale, 3);
  return fmt::format(fmt::runtime(value < 0.0 ? words.less : words.more), size);
}

std::string clause(CauseKind kind, double value, double sd) {
  const Words& words = wordsOf(kind);
  const std::string size = plain::withError(std::abs(value) * words.scale, sd * words.scale);
  const std::string text = fmt::format(fmt::runtime(value < 0.0 ? words.less : words.more), size);
  return std::abs(value) >= kSure * sd ? text
                                       : text + ", which these pictures leave unsure: take some at two distances";
}

std::string meaningOf(CauseKind kind) {
  const Words& words = wordsOf(kind);
  const std::string unit = *words.unit == '\0' ? "" : fmt::format(", in {}", words.unit);
  return fmt::format("A cause{}: above 0 {}; below 0 {}.", unit, fmt::format(fmt::runtime(words.more), "so many"),
                     fmt::format(fmt::runtime(words.less), "so many"));
}

std::string ofCause(const FoundCauses& found, CauseKind kind) {
  const auto place = static_cast<std::size_t>(kind);
  if (found.choice.group[place] == 0) {
    return clause(kind, found.values[place], found.sds[place]);
  }
  if (found.alone[place]) return "if it is this alone: " + clause(kind, *found.alone[place]);
  return "perhaps, beside another of its group: " + clause(kind, found.values[place]);
}

std::string ofAll(const FoundCauses& found) {
  if (found.choice.named.none()) return withoutCause(found);
  std::string text;
  std::vector<std::string> told_apart;
  for (const std::size_t k : membersOf(found, 0))
    told_apart.push_back(clause(kindAt(k), found.values[k], found.sds[k]));
  if (!told_apart.empty()) text += capital(listOf(told_apart, "; and ")) + ". ";
  std::vector<int> told_groups{0};
  for (const int group : found.choice.group) {
    if (std::ranges::count(told_groups, group) > 0) continue;
    told_groups.push_back(group);
    text += ofGroup(found, group) + " ";
  }
  return text + rowsText(found);
}

bool hasPattern(const FoundCauses& found) { return found.alike.smooth_rms > 0.5 * found.spread_after; }

}  // namespace cause_words
