#pragma once

#include <chrono>
#include <string>

/// Every text of the runs themselves: their error texts and the lines of their log. Those of an evaluation stand with
/// it.
namespace run_texts {

// Error texts.
/// Images that are not usable; the frame run uses it for missing tables, too.
inline constexpr const char* kReadImageError = "Read image Error!";
inline constexpr const char* kReadPolyError = "Read Poly Params Error!";
inline constexpr const char* kResultFolderError = "Make result file error!";
/// The callback ended a run between two pairs.
inline constexpr const char* kRunTerminated = "Callback Terminated!";
/// The callback ended the call before its run had begun or after it was done.
inline constexpr const char* kCallTerminated = "Callback Terminated";

/// Of the exception that ends a run whose direction of the epipolar lines is none. Those of a crop that can't be cut
/// stand at the checks that throw them, which take no text by name.
inline constexpr const char* kUnknownDirection = "x_y must be 0 or 1";

// Lines of the log.
inline constexpr const char* kImageEmpty = "The image is empty!";
inline constexpr const char* kTriangulatesBrown = "CalTriangulateRepBrown";
inline constexpr const char* kTriangulatesPoly = "CalTriangulateRepPOLY";
inline constexpr const char* kChecksBoardBrown = "distortion model: Brown";
inline constexpr const char* kChecksBoardPoly = "distortion model: POLY";
inline constexpr const char* kLoaded = "--------Load Parameters OK";
inline constexpr const char* kInitialised = "--------Initialization Parameters OK";
inline constexpr const char* kPairDone = "--------LoadImageFrames ------";  ///< With the pair's number behind it.

// What the callback gets, per cent; the pairs share what lies between the last of these and 99.
inline constexpr float kInitialisedPercent = 0.002F;
inline constexpr float kRunBegunPercent = 0.003F;
inline constexpr float kAllPairsPercent = 99.0F;
// What the first two lines of the log say instead; that they differ is meant.
inline constexpr double kLoadedInLog = 0.045;
inline constexpr double kInitialisedInLog = 0.0553;

}  // namespace run_texts

/// Prints a line of the log: what was done, the milliseconds since `start`, and the number that the line carries for
/// the callback (the first two lines of a call carry constants there, which differ from what the callback gets; the log
/// keeps them).
void printTimedLine(const std::string& what, std::chrono::steady_clock::time_point start, double callback);
