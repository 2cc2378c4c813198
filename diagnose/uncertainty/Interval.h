#pragma once

#include <optional>
#include <vector>

#include "diagnose/uncertainty/Repetition.h"
#include "polarline/uncertainty.h"

/// A quantile of ascending values, between its neighbours by their share; `part` from 0 to 1, values not empty.
double quantileOf(const std::vector<double>& ascending, double part);

/// The basic bootstrap interval (Davison and Hinkley 1997): the repetitions scatter about their own mean as the figure
/// does about the mean that is asked for, so the figure lies from that as far as they lie from theirs. It needs no
/// guess of the bias that noise gives to means of absolute values: both means have it. A figure that counts dots gets
/// half a step on either side. Not below 0, as no such figure is, nor above the most that it can be. None for a figure
/// that came to no number.
std::optional<polarline::FigureUncertainty> uncertaintyOf(RepeatedFigure figure);
