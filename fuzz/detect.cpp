#include <opencv2/imgproc.hpp>

#include "Tallowfen/src/RingTarget.h"
#include "fuzz/Harness.h"
#include "platform/ClassicStream.h"

namespace {

/// Takes the input apart; zeros behind its end.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}
  int next() { return at_ < size_ ? data_[at_++] : 0; }
  int next(int from, int to) { return from + next() % (to - from + 1); }
  bool empty() const { return at_ >= size_; }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  std::size_t at_ = 0;
};

std::string targetText(Bytes& bytes) {
  std::ostringstream text = classic::output();
  text << "board_type: " << bytes.next(1, 4) << "\nrows: " << bytes.next() << "\ncols: " << bytes.next()
       << "\ninner_width: " << bytes.next() << "\ninner_height: " << bytes.next() << "\noutter_width: " << bytes.next()
       << "\noutter_height: " << bytes.next() << "\nstep: " << bytes.next() << "\nstep_y: " << bytes.next()
       << "\nratio_solid: 0.3\nid_method: " << bytes.next(0, 2) << "\nbin_method: " << bytes.next(0, 3)
       << "\nbin_blocksize: " << bytes.next() << "\nmin_circularity: 0." << bytes.next(0, 9)
       << "\nland_mark_switch: " << bytes.next(0, 1) << "\nland_mark1_x: " << bytes.next()
       << "\ndetection_switch: " << bytes.next(0, 1) << "\ndetection_id: [0,1,2,3]";
  return text.str();
}

/// A small image: dots and rings at places from the input on a light ground, or the input itself as pixels.
cv::Mat picture(Bytes& bytes) {
  const bool small = bytes.next(0, 3) != 0;
  const cv::Size size(small ? bytes.next(26, 90) : bytes.next(200, 455) * 2, bytes.next(26, 120));
  cv::Mat image(size, CV_8UC1, cv::Scalar(bytes.next()));
  if (bytes.next(0, 7) == 0) {
    for (int row = 0; row < image.rows; ++row)
      for (int column = 0; column < image.cols; ++column)
        image.at<std::uint8_t>(row, column) = static_cast<std::uint8_t>(bytes.next());
    return image;
  }
  while (!bytes.empty()) {
    const cv::Point centre(bytes.next() * image.cols / 255, bytes.next() * image.rows / 255);
    const cv::Size axes(bytes.next(1, 12), bytes.next(1, 12));
    cv::ellipse(image, centre, axes, bytes.next(), 0, 360, cv::Scalar(bytes.next()), bytes.next(0, 3) == 0 ? 2 : -1);
  }
  return image;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    Bytes bytes(data, size);
    kestrune::RingTarget target;
    target.loadConfig(targetText(bytes));
    const cv::Mat image = picture(bytes);
    kestrune::RingTarget::Points points;
    kestrune::RingTarget::Points unidentified;
    target.detect(image, points, unidentified, cv::Mat());
    target.detectframework(image, points, unidentified, cv::Mat());
    cv::Mat drawn;
    target.draw(image, drawn, 1.0);
  });
}
