#include "tools/scene/Sensor.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/scene/Random.h"

namespace {

using scene::Optics;

cv::Mat unevenImage() {
  cv::Mat image(40, 60, CV_32F);
  for (int v = 0; v < image.rows; ++v) {
    for (int u = 0; u < image.cols; ++u) image.at<float>(v, u) = static_cast<float>((u * 37 + v * 101) % 200);
  }
  return image;
}

Optics noiseless(int bits) {
  Optics optics;
  optics.read_noise = optics.shot_noise = 0.0;
  optics.bits = bits;
  return optics;
}

TEST(Sensor, BlurKeepsTheSum) {
  const cv::Mat image = unevenImage();
  for (const double sigma : {0.3, 0.7, 2.0, 15.0})
    EXPECT_NEAR(cv::sum(scene::blurred(image, sigma))[0] / cv::sum(image)[0], 1.0, 1e-6);
}

TEST(Sensor, BlurOfAPointIsTheGaussian) {
  cv::Mat image = cv::Mat::zeros(41, 41, CV_32F);
  image.at<float>(20, 20) = 1000.0F;
  const cv::Mat blurred = scene::blurred(image, 2.0);
  // Spacing 1 at sigma 2: the sampled weights' sum is sigma sqrt(2 pi) but for 1e-4 and less.
  EXPECT_NEAR(blurred.at<float>(20, 20), 1000.0 / (8.0 * 3.14159265), 0.02);
  EXPECT_NEAR(blurred.at<float>(20, 23) / blurred.at<float>(20, 20), std::exp(-9.0 / 8.0), 1e-5);
  EXPECT_NEAR(blurred.at<float>(23, 20) / blurred.at<float>(20, 20), std::exp(-9.0 / 8.0), 1e-5);
}

TEST(Sensor, NoBlurWithoutSigma) {
  EXPECT_EQ(cv::norm(scene::blurred(unevenImage(), 0.0), unevenImage(), cv::NORM_INF), 0.0);
}

TEST(Sensor, VignetteTakesItsShareInTheCorners) {
  Optics optics;
  optics.gradient_x = optics.gradient_y = 0.0;
  optics.vignette = 0.25;
  const cv::Mat light = scene::illuminated(cv::Mat(101, 201, CV_32F, cv::Scalar(100)), optics);
  EXPECT_FLOAT_EQ(light.at<float>(50, 100), 100.0F);
  EXPECT_NEAR(light.at<float>(0, 0), 75.0, 0.5);
  EXPECT_NEAR(light.at<float>(100, 200), 75.0, 0.5);
}

TEST(Sensor, GradientRunsAcrossTheImage) {
  Optics optics;
  optics.vignette = 0.0;
  optics.gradient_x = 0.1;
  optics.gradient_y = -0.2;
  const cv::Mat light = scene::illuminated(cv::Mat(100, 100, CV_32F, cv::Scalar(100)), optics);
  EXPECT_NEAR(light.at<float>(50, 99) - light.at<float>(50, 0), 9.9, 1e-4);
  EXPECT_NEAR(light.at<float>(99, 50) - light.at<float>(0, 50), -19.8, 1e-4);
}

struct Depth {
  int bits;
  int type;
  int of_grey_100;
  int top;
};

class SensorDepth : public testing::TestWithParam<Depth> {};

TEST_P(SensorDepth, ScalesAndClips) {
  cv::Mat image = (cv::Mat_<float>(1, 3) << -5.0F, 100.0F, 300.0F);
  const cv::Mat digital = scene::digitised(image, noiseless(GetParam().bits), 1);
  ASSERT_EQ(digital.type(), GetParam().type);
  cv::Mat values;
  digital.convertTo(values, CV_32S);
  EXPECT_EQ(values.at<int>(0, 0), 0);
  EXPECT_EQ(values.at<int>(0, 1), GetParam().of_grey_100);
  EXPECT_EQ(values.at<int>(0, 2), GetParam().top);
}

// 100 / 255 of the top value, rounded: 401.18, 1605.9 and 25700.
INSTANTIATE_TEST_SUITE_P(Bits, SensorDepth,
                         testing::Values(Depth{8, CV_8UC1, 100, 255}, Depth{10, CV_16UC1, 401, 1023},
                                         Depth{12, CV_16UC1, 1606, 4095}, Depth{16, CV_16UC1, 25700, 65535}));

TEST(Sensor, ThreeChannelsHaveTheirGains) {
  Optics optics = noiseless(8);
  optics.channels = 3;
  optics.channel_gain = {0.5, 1.0, 1.5};
  const cv::Mat digital = scene::digitised(cv::Mat(2, 2, CV_32F, cv::Scalar(100)), optics, 1);
  ASSERT_EQ(digital.type(), CV_8UC3);
  EXPECT_EQ(digital.at<cv::Vec3b>(1, 1), cv::Vec3b(50, 100, 150));
}

TEST(Sensor, NoiseHasReadAndShotVariance) {
  Optics optics = noiseless(16);
  optics.read_noise = 2.0;
  optics.shot_noise = 0.05;
  const cv::Mat digital = scene::digitised(cv::Mat(300, 300, CV_32F, cv::Scalar(100)), optics, 7);
  cv::Scalar mean, deviation;
  cv::meanStdDev(digital, mean, deviation);
  EXPECT_NEAR(mean[0] / 257.0, 100.0, 0.05);
  EXPECT_NEAR(deviation[0] / 257.0, 3.0, 0.05);  // the root of 4 + 0.05 x 100
}

TEST(Sensor, SameSeedSameBytes) {
  const Optics optics;
  const cv::Mat a = scene::digitised(unevenImage(), optics, 5);
  EXPECT_EQ(cv::norm(a, scene::digitised(unevenImage(), optics, 5), cv::NORM_INF), 0.0);
  EXPECT_GT(cv::norm(a, scene::digitised(unevenImage(), optics, 6), cv::NORM_INF), 0.0);
}

TEST(SensorRandom, FirstNumbersOfTheGenerator) {
  // Published first outputs of SplitMix64 for the seed 1234567.
  scene::Random random(1234567);
  EXPECT_EQ(random.bits(), 6457827717110365317U);
  EXPECT_EQ(random.bits(), 3203168211198807973U);
}

TEST(SensorRandom, NormalHasMeanZeroAndDeviationOne) {
  scene::Random random(3);
  double sum = 0, squares = 0;
  const int count = 200000;
  for (int k = 0; k < count; ++k) {
    const double value = random.normal();
    sum += value;
    squares += value * value;
  }
  EXPECT_NEAR(sum / count, 0.0, 0.01);
  EXPECT_NEAR(squares / count, 1.0, 0.01);
}

}  // namespace
