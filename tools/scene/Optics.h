#pragma once

#include <array>

namespace scene {

/// How light becomes grey values. Greys are those of an 8-bit image, whatever `bits` is.
struct Optics {
  double paper = 215.0;       ///< The board's ground.
  double ink = 22.0;          ///< Dots and rings. Above `paper` it makes bright dots on a dark board.
  double surround = 100.0;    ///< What lies beyond the board.
  double texture = 3.0;       ///< Height of a soft pattern in the surround; 0 for none.
  double blur_sigma = 0.7;    ///< Gaussian blur of the lens, pixels.
  double vignette = 0.12;     ///< Share of light that is lost in the corners; grows with the square of the distance.
  double gradient_x = 0.06;   ///< Change of the light from the image's left to its right edge, as a share.
  double gradient_y = -0.04;  ///< From top to bottom.
  double read_noise = 0.8;    ///< Standard deviation in greys.
  double shot_noise = 0.01;   ///< Variance per grey: the variance of a pixel is read_noise^2 + shot_noise x grey.
  int bits = 8;               ///< 8 makes an 8-bit image; 9 to 16 a 16-bit image whose values reach 2^bits - 1.
  int channels = 1;           ///< 1, or 3 with the channels' own gains and noise.
  std::array<double, 3> channel_gain{0.93, 1.0, 0.97};  ///< Blue, green, red; used with three channels only.
  int supersampling = 12;  ///< A pixel that an edge crosses takes this number squared of samples.
};

/// Sets the read noise, in greys; 0 takes the shot noise away too.
inline void setNoise(Optics& optics, double read_noise) {
  optics.read_noise = read_noise;
  if (read_noise == 0.0) optics.shot_noise = 0.0;
}

}  // namespace scene
