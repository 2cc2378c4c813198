#include <fmt/format.h>

#include <cmath>
#include <opencv2/calib3d.hpp>
#include <opencv2/features2d.hpp>
#include <vector>

#include "Tallowfen/src/RingTarget.h"
#include "bench/Boards.h"
#include "bench/Floor.h"
#include "bench/Groups.h"
#include "tools/scene/TargetText.h"

namespace {

constexpr double kGoalAgainstFloor = 1.25;

/// Finds and numbers the dots of one picture again and again.
class Finder {
 public:
  explicit Finder(const BoardPicture& picture) : image_(picture.image()) {
    target_.loadConfig(scene::targetIni(picture.scene()));
  }

  void operator()() {
    kestrune::RingTarget::Points points, unidentified;
    target_.detect(image_, points, unidentified, cv::Mat());
    found_ = points.size();
  }
  const cv::Mat& image() const { return image_; }
  std::size_t found() const { return found_; }

 private:
  cv::Mat image_;
  kestrune::RingTarget target_;
  std::size_t found_ = 0;
};

bool isBigDots(const BoardPicture& picture) { return picture.kind == scene::BoardKind::kBigDots; }

/// What OpenCV finds of a plain grid.
class OpenCvFinder {
 public:
  explicit OpenCvFinder(const BoardPicture& picture)
      : image_(picture.plainGrid()), size_(picture.cols, picture.rows), blobs_(cv::SimpleBlobDetector::create()) {}

  void grid(int flags) {
    std::vector<cv::Point2f> centres;
    found_ = cv::findCirclesGrid(image_, size_, centres, flags, blobs_);
  }
  void blobs() {
    std::vector<cv::KeyPoint> points;
    blobs_->detect(image_, points);
    blob_count_ = points.size();
  }
  std::string gridNote() const { return found_ ? "found" : "not found"; }
  std::string blobNote() const { return fmt::format("{} of {} found", blob_count_, size_.area()); }

 private:
  cv::Mat image_;
  cv::Size size_;
  cv::Ptr<cv::FeatureDetector> blobs_;
  bool found_ = false;
  std::size_t blob_count_ = 0;
};

/// What the detection is to be faster than the grouping search: so many times. None where that was never asked.
std::optional<double> goalAgainstGrid(const BoardPicture& picture) {
  if (picture.width == 640 && picture.dots() == 1295) return 1.0 / 5.0;
  if (picture.width == 1280 && picture.dots() == 416) return 1.0 / 3.0;
  if (picture.width == 2448 && picture.dots() == 1295) return 1.0 / 20.0;
  return std::nullopt;
}

Row rowOf(const Contest& contest, std::size_t other, Row row) {
  row.ours = contest.time(0);
  row.theirs = contest.time(other);
  row.ratio = contest.ratio(0, other);
  row.rounds = contest.rounds();
  return row;
}

/// The search without grouping compares every three dots: with more than some hundred it takes minutes.
constexpr int kMostForSymmetric = 700;
constexpr int kMostForOthers = 2000;

void addOthers(const BoardPicture& picture, const Plan& plan, Table& table) {
  Finder finder(picture);
  OpenCvFinder grouping(picture), symmetric(picture), blobs(picture);
  std::vector<Contestant> contestants = {
      {"detect", [&] { finder(); }},
      {"grouping", [&] { grouping.grid(cv::CALIB_CB_SYMMETRIC_GRID | cv::CALIB_CB_CLUSTERING); }},
      {"blobs", [&] { blobs.blobs(); }}};
  const bool with_symmetric = picture.dots() <= kMostForSymmetric;
  if (with_symmetric) contestants.push_back({"symmetric", [&] { symmetric.grid(cv::CALIB_CB_SYMMETRIC_GRID); }});
  const Contest contest(contestants, plan.effort);
  Row row{.group = "others", .name = picture.name()};
  row.against = "findCirclesGrid, clustering";
  row.note = grouping.gridNote();
  row.goal = goalAgainstGrid(picture);
  table.add(rowOf(contest, 1, row));
  row.goal.reset();
  if (with_symmetric) {
    row.against = "findCirclesGrid, symmetric";
    row.note = symmetric.gridNote();
    table.add(rowOf(contest, 3, row));
  }
  row.against = "SimpleBlobDetector alone";
  row.note = blobs.blobNote();
  table.add(rowOf(contest, 2, row));
}

/// Slope of the line through points of logarithms: the time grows with the amount to the power of this.
double exponentOf(const std::vector<std::pair<double, double>>& amounts_and_times) {
  double x = 0.0, y = 0.0, xx = 0.0, xy = 0.0;
  for (const auto& [amount, time] : amounts_and_times) {
    x += std::log(amount);
    y += std::log(time);
    xx += std::log(amount) * std::log(amount);
    xy += std::log(amount) * std::log(time);
  }
  const auto n = static_cast<double>(amounts_and_times.size());
  return (n * xy - x * y) / (n * xx - x * x);
}

/// The pictures of a plan that a condition picks, by what grows from one to the next.
template <typename Picks, typename Amount>
void addGrowth(const Plan& plan, Table& table, Row row, const Picks& picks, const Amount& amount) {
  std::vector<std::pair<double, double>> points;
  for (const BoardPicture& picture : boardPictures(plan.quick, plan.only)) {
    if (!picks(picture)) continue;
    for (const Row& measured : table.rows()) {
      if (measured.group == "detect" && measured.name == picture.name() && measured.ours)
        points.emplace_back(amount(picture), measured.ours->middle);
    }
  }
  if (points.size() < 3) return;
  const double exponent = exponentOf(points);
  row.group = "growth";
  row.ratio = {exponent, exponent, exponent};
  row.rounds = points.size();
  table.add(row);
}

}  // namespace

void detectRows(const Plan& plan, Table& table) {
  for (const BoardPicture& picture : boardPictures(plan.quick, plan.only)) {
    Finder finder(picture);
    const Contest contest({{"detect", [&] { finder(); }},
                           {"floor", [&] { floorOfDetection(finder.image(), isBigDots(picture), picture.dots()); }}},
                          plan.effort);
    const Row row{.group = "detect",
                  .name = picture.name(),
                  .against = "its OpenCV calls",
                  .goal = kGoalAgainstFloor,
                  .note = fmt::format("{} found", finder.found())};
    table.add(rowOf(contest, 1, row));
  }
}

void otherRows(const Plan& plan, Table& table) {
  Plan slow = plan;
  slow.effort.fewest = std::min<std::size_t>(plan.effort.fewest, 3);
  for (const BoardPicture& picture : boardPictures(plan.quick, plan.only)) {
    if (picture.dots() <= kMostForOthers) addOthers(picture, slow, table);
  }
}

void growthRows(const Plan& plan, Table& table) {
  const auto dots = [](const BoardPicture& picture) { return static_cast<double>(picture.dots()); };
  const auto pixels = [](const BoardPicture& picture) { return static_cast<double>(picture.width) * picture.height; };
  for (const bool big_dots : {false, true}) {
    const char* board = big_dots ? "big dots" : "rings";
    addGrowth(
        plan, table,
        {.name = fmt::format("with the dots, {}, 2448 x 2048", board), .against = "600 to 5200 dots", .goal = 1.0},
        [&](const BoardPicture& picture) { return picture.width == 2448 && isBigDots(picture) == big_dots; }, dots);
    addGrowth(
        plan, table, {.name = fmt::format("with the pixels, {}, 1295 dots", board), .against = "320 to 2448 columns"},
        [&](const BoardPicture& picture) { return picture.dots() == 1295 && isBigDots(picture) == big_dots; }, pixels);
  }
}
