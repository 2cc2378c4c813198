#include "tools/scene/Sensor.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "tools/scene/Random.h"

namespace scene {
namespace {

std::vector<float> gaussian(double sigma) {
  const int radius = static_cast<int>(std::ceil(4.0 * sigma));
  std::vector<double> weights;
  double sum = 0.0;
  for (int k = -radius; k <= radius; ++k) {
    weights.push_back(std::exp(-0.5 * k * k / (sigma * sigma)));
    sum += weights.back();
  }
  std::vector<float> normalised;
  normalised.reserve(weights.size());
  for (const double weight : weights) normalised.push_back(static_cast<float>(weight / sum));
  return normalised;
}

int mirrored(int index, int size) {
  while (index < 0 || index >= size) index = index < 0 ? -1 - index : 2 * size - 1 - index;
  return index;
}

/// Blurs along the columns.
cv::Mat blurredDown(const cv::Mat& image, const std::vector<float>& weights) {
  const int radius = static_cast<int>(weights.size() / 2);
  cv::Mat result = cv::Mat::zeros(image.size(), CV_32F);
  for (int row = 0; row < image.rows; ++row) {
    auto* to = result.ptr<float>(row);
    for (std::size_t k = 0; k < weights.size(); ++k) {
      const auto* from = image.ptr<float>(mirrored(row + static_cast<int>(k) - radius, image.rows));
      const float weight = weights[k];
      for (int column = 0; column < image.cols; ++column) to[column] += weight * from[column];
    }
  }
  return result;
}

template <typename Pixel>
void digitiseInto(cv::Mat& result, const cv::Mat& image, const Optics& optics, std::uint64_t seed) {
  const double top = std::ldexp(1.0, optics.bits) - 1.0;
  const double scale = top / 255.0;
  Random random(seed);
  for (int row = 0; row < image.rows; ++row) {
    const auto* from = image.ptr<float>(row);
    auto* to = result.ptr<Pixel>(row);
    for (int column = 0; column < image.cols; ++column) {
      for (int channel = 0; channel < optics.channels; ++channel) {
        const double gain = optics.channels == 1 ? 1.0 : optics.channel_gain.at(static_cast<std::size_t>(channel));
        const double grey = gain * from[column];
        const double variance = optics.read_noise * optics.read_noise + optics.shot_noise * std::max(grey, 0.0);
        const double noisy = grey + std::sqrt(variance) * random.normal();
        to[column * optics.channels + channel] =
            static_cast<Pixel>(std::clamp(std::floor(noisy * scale + 0.5), 0.0, top));
      }
    }
  }
}

}  // namespace

cv::Mat blurred(const cv::Mat& image, double sigma) {
  if (!(sigma > 0.0)) return image.clone();
  const std::vector<float> weights = gaussian(sigma);
  const cv::Mat down = blurredDown(image, weights);
  return blurredDown(down.t(), weights).t();
}

cv::Mat illuminated(const cv::Mat& image, const Optics& optics) {
  cv::Mat result(image.size(), CV_32F);
  const double half_w = image.cols / 2.0;
  const double half_h = image.rows / 2.0;
  const double corner = half_w * half_w + half_h * half_h;
  for (int row = 0; row < image.rows; ++row) {
    const double y = row + 0.5 - half_h;
    for (int column = 0; column < image.cols; ++column) {
      const double x = column + 0.5 - half_w;
      const double vignette = 1.0 - optics.vignette * (x * x + y * y) / corner;
      const double light = 1.0 + optics.gradient_x * x / image.cols + optics.gradient_y * y / image.rows;
      result.at<float>(row, column) = static_cast<float>(image.at<float>(row, column) * vignette * light);
    }
  }
  return result;
}

cv::Mat digitised(const cv::Mat& image, const Optics& optics, std::uint64_t seed) {
  const int depth = optics.bits > 8 ? CV_16U : CV_8U;
  cv::Mat result(image.size(), CV_MAKETYPE(depth, optics.channels));
  if (depth == CV_8U) {
    digitiseInto<std::uint8_t>(result, image, optics, seed);
  } else {
    digitiseInto<std::uint16_t>(result, image, optics, seed);
  }
  return result;
}

}  // namespace scene
