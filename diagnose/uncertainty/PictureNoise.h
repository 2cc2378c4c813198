#pragma once

#include <opencv2/core.hpp>

#include "diagnose/uncertainty/SeededRandom.h"

/// Noise of a picture of 8 bits whose variance grows with the grey, as that of counted light does (Foi, Trimeche,
/// Katkovnik and Egiazarian 2008): variance = floor + slope grey, square greys.
struct PictureNoise {
  double floor = 0.0;
  double slope = 0.0;

  double varianceAt(double grey) const { return floor + slope * grey; }
};

/// From the second differences of the places where the picture is flat (Immerkaer 1996), which neither light nor edges
/// reach. What is printed on the paper finer than two pixels counts as noise. CV_8UC1.
PictureNoise estimateNoise(const cv::Mat& picture);

/// The picture with so much noise more that it differs from what it was as another picture of the same scene does:
/// twice the variance. In whole greys.
cv::Mat withMoreNoise(const cv::Mat& picture, const PictureNoise& noise, SeededRandom& random);
