#include "Tallowfen/src/RingTarget.h"
#include "fuzz/DrawnBoard.h"
#include "fuzz/Harness.h"
#include "fuzz/HugeBoard.h"
#include "polar/measure/ImageNormalisation.h"

namespace {

using fuzzing::Board;
using fuzzing::Bytes;

/// The detection's own keys, away from their usual values where the input says so.
void vary(kestrune::RingTargetConfig& config, Bytes& bytes) {
  const auto choose = [&bytes](auto& field, auto value) {
    if (bytes.onceIn(8)) field = static_cast<std::remove_reference_t<decltype(field)>>(value);
  };
  const int choices = bytes.next();
  if (choices & 1) config.bin_method = static_cast<std::uint16_t>(bytes.upTo(3));
  if (choices & 2) config.bin_blocksize = bytes.next() - 20;
  if (choices & 4) config.detection_switch = 1;
  if (choices & 8) config.id_method = static_cast<std::uint16_t>(bytes.upTo(2));
  if (choices & 16) config.step = static_cast<float>(bytes.next());
  if (choices & 32) config.step_y = static_cast<float>(bytes.next());
  if (choices & 64) config.ratio_solid = static_cast<float>(bytes.around(0.0, 1.0));
  if (choices & 128) config.min_circularity = static_cast<float>(bytes.around(0.5, 0.5));
  choose(config.min_radius, bytes.next());
  choose(config.max_radius, bytes.next());
  choose(config.max_sigma, bytes.around(1.0, 1.0));
  choose(config.rows, bytes.next());
  choose(config.cols, bytes.next());
  choose(config.inner_width, bytes.next() * 256);
  choose(config.outter_height, bytes.next());
  choose(config.land_mark3_y, bytes.next() * 256);
  choose(config.board_type, bytes.next());
  config.detection_id = {0, 1, 2, 3, static_cast<std::uint16_t>(bytes.next()), 7, 7};
}

/// An empty picture with specks, or small pixels one by one.
cv::Mat pictureWithoutBoard(bool specks, Bytes& bytes) {
  const cv::Size size(specks ? 60 + 4 * bytes.next() : 50 + bytes.upTo(40), 10 + bytes.upTo(120));
  cv::Mat image(size, CV_8UC1, cv::Scalar(bytes.next()));
  if (specks) {
    fuzzing::drawSpecks(image, bytes.next(), bytes);
  } else {
    for (auto pixel = image.begin<std::uint8_t>(); pixel != image.end<std::uint8_t>(); ++pixel) {
      *pixel = static_cast<std::uint8_t>(bytes.next());
    }
  }
  return image;
}

/// As a caller may bring it: 8-bit, 16-bit or coloured and made 8-bit on the way, or of a type that is refused.
cv::Mat asBrought(const cv::Mat& image, Bytes& bytes) {
  cv::Mat brought;
  switch (bytes.upTo(7)) {
    case 4:
      image.convertTo(brought, CV_16U, bytes.next(), bytes.next());
      return normaliseTo8Bit(brought);
    case 5:
      cv::cvtColor(image, brought, cv::COLOR_GRAY2BGR);
      return normaliseTo8Bit(brought);
    case 6:
      image.convertTo(brought, CV_16U);
      return brought;
    case 7:
      return image(cv::Rect(0, 0, 1 + bytes.next() % image.cols, 1 + bytes.next() % image.rows));
    default:
      return image;
  }
}

cv::Mat maskFor(const cv::Mat& image, Bytes& bytes) {
  const int kind = bytes.upTo(7);
  if (kind < 5) return {};
  if (kind == 5) return cv::Mat(3, 3, CV_8UC1, cv::Scalar(255));
  cv::Mat mask(image.size(), CV_8UC1, cv::Scalar(kind == 6 ? 255 : 0));
  const cv::Rect part(bytes.next() * mask.cols / 255, bytes.next() * mask.rows / 255, 1 + bytes.next(),
                      1 + bytes.next());
  cv::rectangle(mask, part, cv::Scalar(kind == 6 ? 0 : 255), cv::FILLED);
  return mask;
}

void giveBoardPointsAndRegion(kestrune::RingTarget& target, const Board& board, Bytes& bytes) {
  if (bytes.onceIn(8)) target.setBoardPoints(std::vector<cv::Point3f>(board.marks.size()));
  if (bytes.onceIn(8)) {
    std::vector<float> region;
    for (int k = 0; k < 4; ++k) region.push_back(static_cast<float>(bytes.around(k % 2, 1.0)));
    target.setDetectionRegion(region);
  }
}

void detectAll(kestrune::RingTarget& target, const cv::Mat& image, Bytes& bytes) {
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  const cv::Mat mask = maskFor(image, bytes);
  target.detect(image, points, unidentified, mask);
  const int more = bytes.next();
  cv::Mat other;
  if (more % 4 == 1) target.draw(image, other, 0.5 + bytes.upTo(2));
  if (more % 4 == 2) target.detectframework(image, points, unidentified, mask);
  if (more % 4 == 3) {
    cv::rotate(image, other, cv::ROTATE_90_CLOCKWISE);
    target.detect(other, points, unidentified, cv::Mat());
  }
}

}  // namespace

// The first byte chooses the picture: a drawn board of one of the kinds, specks, or pixels. The configuration is that
// of the board, some values changed, and arbitrary text behind it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return fuzzing::run([&] {
    Bytes bytes(data, size);
    const int kind = bytes.upTo(7);
    Board board = fuzzing::boardFrom(static_cast<fuzzing::BoardKind>(kind % fuzzing::kBoardKinds), bytes);
    cv::Mat image = kind < fuzzing::kBoardKinds ? fuzzing::pictureOf(board, bytes)
                                                : pictureWithoutBoard(kind == fuzzing::kBoardKinds, bytes);
    image = asBrought(image, bytes);
    vary(board.config, bytes);
    kestrune::RingTarget target;
    giveBoardPointsAndRegion(target, board, bytes);
    const std::string text = fuzzing::textOf(board.config) + bytes.text(static_cast<std::size_t>(bytes.next()));
    if (fuzzing::isHuge(kestrune::readTextConfig(text))) return;
    target.loadConfig(text);
    detectAll(target, image, bytes);
  });
}
