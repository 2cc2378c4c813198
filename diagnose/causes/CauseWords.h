#pragma once

#include <string>

#include "diagnose/causes/FoundCauses.h"

/// The causes in words that a mechanic understands.
namespace cause_words {

const char* nameOf(CauseKind kind);
const char* unitOf(CauseKind kind);

/// A value of `Misalignment` in the unit that is told: degrees for radians, all else as it is.
double told(CauseKind kind, double value);

/// "the right camera looks up by 0.0500 degrees", with the sign as a direction.
std::string clause(CauseKind kind, double value);
/// The same with its standard error, "by 0.0500 ± 0.0012 degrees", and whether that leaves it unsure.
std::string clause(CauseKind kind, double value, double sd);

/// "A cause, in deg: above 0 the right camera looks down by so many degrees; below 0 ...".
std::string meaningOf(CauseKind kind);

/// A cause of what was found, with its standard error, or with what it is if it is the only one of its group.
std::string ofCause(const FoundCauses& found, CauseKind kind);

/// All of it in a few sentences.
std::string ofAll(const FoundCauses& found);

/// Is more than a quarter of the squared rows that remain alike in neighbouring dots?
bool hasPattern(const FoundCauses& found);

}  // namespace cause_words
