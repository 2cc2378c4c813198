#pragma once

#include <cstddef>

/// From where on something is warned of, each with its reason. docs/warnings.md repeats them, held by a test.
namespace diagnose::thresholds {

// --- Light. The detector and the sub-pixel edges take the middle between dot and ground, so what counts is how sure
// that middle is.
/// Share of saturated pixels around the dots: beyond it the ground's level is cut off, and edges move outward.
inline constexpr double kSaturated = 0.01;
/// Bright level as a share of the full scale: below it 8 bits leave some ten steps for an edge.
inline constexpr double kDark = 0.15;
/// Difference of dot and ground as a share of the full scale; printed boards have half and more.
inline constexpr double kContrast = 0.10;
/// Difference of dot and ground in standard deviations of a pixel's noise; beneath it outlines are ragged.
inline constexpr double kContrastInNoise = 8.0;
/// Edge width, pixels: a focused lens has 0.5 to 1.0; from twice that on, fine dots flow into one another. Of small
/// dots it comes out too narrow then, as they do not reach their own grey.
inline constexpr double kEdgeWidth = 1.8;
/// A focused lens has alike edges in all directions to a tenth; and a smear of half a pixel moves no centre by much.
inline constexpr double kMotionRatio = 1.4;
inline constexpr double kMotionSmear = 0.8;

// --- The board in the pictures.
/// Share of the picture: a board that fills less judges less than a quarter of each side.
inline constexpr double kBoardShare = 0.06;
/// Share of the picture that all pairs together show dots in.
inline constexpr double kCoverage = 0.40;
/// Fewer pairs are a glance, which need not cover anything.
inline constexpr std::size_t kCoveragePairs = 3;
/// Share of the board's dots that a picture numbers.
inline constexpr double kFoundShare = 0.5;

// --- The board's image through the lens.
/// A dot nearer to its place than this share of the way to its neighbour is numbered right.
inline constexpr double kOwnPlace = 0.25;
/// Share of such dots below which the numbering or the board is wrong; single ghosts leave more.
inline constexpr double kFittingShare = 0.9;
/// Root mean square, pixels, and the same as a share of the width: calibrations leave 0.1 to 0.3, centres of tilted
/// dots and printed boards another 0.2.
inline constexpr double kMisfit = 0.7;
inline constexpr double kMisfitOfWidth = 0.0005;
/// A single dot so far from its place, in pixels, in shares of the pitch and in standard deviations of the others.
inline constexpr double kGhostPixels = 1.5;
inline constexpr double kGhostOfPitch = 0.06;
inline constexpr double kGhostSpreads = 12.0;
/// A cause is named if it takes the misfit down to this share, and below the bound above.
inline constexpr double kExplains = 0.35;
/// Smaller misfits than the bound above are looked at from so many times the scatter of the dots on: right calibrations
/// leave 1.0 to 1.5 times.
inline constexpr double kBeyondScatter = 3.0;
/// An explanation of these must take every picture's misfit down to this share, or to so many times its scatter: what
/// helps some pictures only is none.
inline constexpr double kExplainsEach = 0.6;
inline constexpr double kAtScatter = 2.0;
/// Share by which a size, and share of a side by which a crop must differ to be one: less is a focal length or a
/// principal point that is off, of which causes are told.
inline constexpr double kOtherSize = 0.05;
inline constexpr double kCropped = 0.02;
/// The lenses are exchanged if the other one's misfit is at most this share of the own in every picture. Of lenses that
/// are where they belong the other one's is larger, of lenses that are alike it is the same.
inline constexpr double kOtherLens = 0.7;
/// A principal point farther from the middle than this share of the side.
inline constexpr double kOffMiddle = 0.18;

// --- The way between the cameras.
/// Pictures tell the baseline to some tenths of it at worst; units differ by tens.
inline constexpr double kSameLength = 1.5;
/// Cosine below which two directions are opposite.
inline constexpr double kOpposite = -0.5;
/// Share by which distances are wrong: good boards and calibrations are right to 0.1 %, toe-in of some hundredths of a
/// degree makes 0.5 %.
inline constexpr double kScale = 0.01;
/// In standard errors.
inline constexpr double kScaleSure = 5.0;
/// What triangulation and the two poses say of the scale must agree to this share of the deviation.
inline constexpr double kScaleAgrees = 0.4;

// --- The set.
/// With fewer pairs one distance, or one that stands out, is no fault.
inline constexpr std::size_t kLeastPairs = 6;
/// Largest less smallest distance, as a share of their mean.
inline constexpr double kSameDistance = 0.05;
/// A pair stands out with a figure this many times the median, and this many spreads beyond it.
inline constexpr double kStandsOutTimes = 3.0;
inline constexpr double kStandsOutSpreads = 8.0;

// --- Figures.
/// Standard deviation of a row difference from dot to dot, pixels: good detections have 0.02 to 0.06, the roughest way
/// of binarising 0.11; limits are seldom below 0.1.
inline constexpr double kRowNoise = 0.2;
/// The row figure counts as noise below so many times what noise alone makes.
inline constexpr double kNoiseShare = 1.3;
/// Share of the distance by which the rule for fisheyes moves triangulated dots, from which on figures of it are no
/// use.
inline constexpr double kFisheyeOffset = 0.001;

}  // namespace diagnose::thresholds
