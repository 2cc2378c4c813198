#include "refine/FitMarks.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "platform/Median.h"
#include "refine/board/SpreadChoice.h"
#include "refine/edge/RoundBlur.h"
#include "refine/edge/SampledBlur.h"

namespace refine {
namespace {

using polarline::DotState;

/// Marks that tell noise, light and blur of the picture; of large ones, above this radius in pixels, fewer do.
constexpr std::size_t kSampledMarks = 32, kSampledLarge = 16;
constexpr double kLarge = 8.0;
constexpr double kClippedShare = 0.1;
constexpr double kNeighbouredShare = 0.4;
constexpr double kCoveredShare = 0.04;
constexpr int kFewestOutliers = 2;
constexpr double kUnclear = 0.3;         ///< Standard deviation of the centre, pixels.
constexpr double kSmallestFitted = 1.5;  ///< Radius, pixels.
constexpr double kFarthest = 0.35;       ///< From the given place, of the radius; and a pixel.
/// Radius from which on an edge is as good as straight, in standard deviations of its blur.
constexpr double kStraight = 12.0;
/// From an outline on, in standard deviations of its blur and its neighbour's.
constexpr double kNear = kEdgeReach + 3.0;

/// Marks by their column, so that neighbours are found without looking at all of them.
class Sorted {
 public:
  explicit Sorted(const std::vector<DotWork>& dots) : dots_(dots) {
    for (std::size_t k = 0; k < dots.size(); ++k) {
      if (!dots[k].outline) continue;
      const Outline& outline = dots[k].bestOutline();
      order_.push_back({k, outline.centre});
      const cv::Point2d half = outline.halfBox();
      widest_ = std::max({widest_, half.x, half.y});
      softest_ = std::max(softest_, dots[k].blur);
    }
    std::sort(order_.begin(), order_.end(), [](const Mark& a, const Mark& b) { return a.centre.x < b.centre.x; });
  }

  /// Marks whose edges come near to those of the k-th.
  /// Their blur is the picture's where it is known.
  void neighboursOf(std::size_t k, double blur, std::vector<Neighbour>& result) const {
    result.clear();
    const Outline& own = dots_[k].bestOutline();
    const double room = kNear * softest_ + 2.0;
    const double farthest = std::max(own.halfBox().x, own.halfBox().y) + widest_ + room;
    const auto first = std::lower_bound(order_.begin(), order_.end(), own.centre.x - farthest,
                                        [](const Mark& a, double x) { return a.centre.x < x; });
    for (auto at = first; at != order_.end() && at->centre.x <= own.centre.x + farthest; ++at) {
      if (at->number == k || std::abs(at->centre.y - own.centre.y) > farthest) continue;
      const DotWork& other = dots_[at->number];
      const Outline& outline = other.bestOutline();
      const double gap = edgePlace(own, outline.centre.x, outline.centre.y).outside();
      if (gap < std::max(outline.halfBox().x, outline.halfBox().y) + room)
        result.push_back({outline, blur > 0.0 ? blur : other.blur});
    }
  }

 private:
  struct Mark {
    std::size_t number;
    cv::Point2d centre;  ///< As it was when all were sorted.
  };

  const std::vector<DotWork>& dots_;
  std::vector<Mark> order_;
  double widest_ = 0.0, softest_ = 0.0;
};

EdgeModel modelOf(const DotWork& dot, const PictureState& known) {
  EdgeModel model;
  if (dot.fit) {
    model = dot.fit->model;
  } else {
    model.outline = *dot.outline;
    model.blur = known.blur > 0.0 ? known.blur : dot.blur;
    model.edges = dot.edges;
    for (std::size_t k = 1; k < dot.edges; ++k) model.ratio[k] = dot.radii[k] / dot.radii[0];
    model.paper = known.light.greyAt(dot.place->pixel);
    model.ink = known.ink_by_paper * model.paper;
  }
  model.light_origin = dot.place->pixel;
  model.light = known.light.slopeAt(dot.place->pixel);
  return model;
}

/// What will be read of the picture.
void fetchEdge(const GreyPicture& picture, const DotWork& dot) {
  if (!dot.outline) return;
  const Outline& outline = dot.bestOutline();
  const double reach = kEdgeReach * dot.blur + 1.0;
  picture.fetch(outline.centre, outline.halfBox() + cv::Point2d(reach, reach), takenRows(outline, dot.blur));
}

/// Why the pixels do not do for a fit; `kRefined` where they do.
DotState stateOf(const EdgeCounts& pixels) {
  const auto share = [&](int count) { return static_cast<double>(count) / std::max(pixels.on_edge, 1); };
  if (share(pixels.clipped) > kClippedShare) return DotState::kClipped;
  if (share(pixels.neighboured) > kNeighbouredShare) return DotState::kOverlapped;
  return DotState::kRefined;
}

/// What a fit says of the mark.
DotState stateOf(const EdgeFit& fit, const DotPlace& place) {
  const double radius = fit.model.outline.radius();
  if (fit.outliers >= kFewestOutliers && fit.outliers > kCoveredShare * fit.on_edge) return DotState::kCovered;
  const double moved = cv::norm(fit.model.outline.centre - place.pixel);
  const double variance = std::max(fit.covariance(0, 0), fit.covariance(1, 1));
  const bool clear = radius >= kSmallestFitted && moved <= kFarthest * radius + 1.0 && variance < kUnclear * kUnclear;
  return clear ? DotState::kRefined : DotState::kUnclear;
}

double meanOf(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// Mean without the parts that are more than four times the median: what lies over a mark.
double trimmedMean(std::vector<double>& values) {
  if (values.empty()) return -1.0;
  const double limit = 4.0 * rank::upperMedian(values);
  std::erase_if(values, [limit](double value) { return value > limit; });
  return meanOf(values);
}

/// Mean squares of a zone of all refined marks; less one, as the zone's level is fitted to it.
std::vector<double> zoneVariances(const std::vector<DotWork>& dots, ZoneResidual EdgeFit::*zone) {
  std::vector<double> variances;
  for (const DotWork& dot : dots) {
    if (!dot.refined()) continue;
    const ZoneResidual& residual = (*dot.fit).*zone;
    if (residual.count > 3) variances.push_back(residual.squares / (residual.count - 1));
  }
  return variances;
}

/// Means over the refined marks.
struct Greys {
  double paper = 0.0, ink = 0.0, blur = 0.0, radius = 0.0;
  int marks = 0;
};

Greys greysOf(const std::vector<DotWork>& dots) {
  Greys greys;
  for (const DotWork& dot : dots) {
    if (!dot.refined()) continue;
    greys.paper += dot.fit->model.paper;
    greys.ink += dot.fit->model.ink;
    greys.blur += dot.fit->model.blur;
    greys.radius += dot.fit->model.outline.radius();
    ++greys.marks;
  }
  if (greys.marks == 0) return greys;
  const double share = 1.0 / greys.marks;
  return {share * greys.paper, share * greys.ink, share * greys.blur, share * greys.radius, greys.marks};
}

NoiseLevel noiseOf(const GreyPicture& picture, const Greys& greys, const std::vector<DotWork>& dots) {
  std::vector<double> paper = zoneVariances(dots, &EdgeFit::paper), ink = zoneVariances(dots, &EdgeFit::ink);
  double on_paper = trimmedMean(paper), on_ink = trimmedMean(ink);
  NoiseLevel noise;
  noise.least = picture.step * picture.step / 12.0;
  if (on_paper < 0.0) on_paper = noise.least;
  if (on_ink < 0.0) on_ink = on_paper;
  noise.slope = (on_paper - on_ink) / (greys.paper - greys.ink);
  noise.base = on_ink - noise.slope * greys.ink;
  noise.least = std::max(noise.least, 0.25 * std::min(on_paper, on_ink));
  return noise;
}

/// By the brighter of paper and ink, as the noise hides the changes of the darker one.
LightField lightOf(const std::vector<DotWork>& dots, const Greys& greys) {
  const bool is_ink = greys.ink > greys.paper;
  std::vector<PaperGrey> papers;
  for (const DotWork& dot : dots) {
    if (!dot.refined()) continue;
    const EdgeModel& model = dot.fit->model;
    papers.push_back({dot.place->pixel, is_ink ? model.ink * greys.paper / greys.ink : model.paper});
  }
  return LightField(papers);
}

/// Marks spread over the list, which is spread over the board.
std::vector<std::size_t> sampleOf(const std::vector<DotWork>& dots) {
  std::vector<std::size_t> found, sample;
  for (std::size_t k = 0; k < dots.size(); ++k) {
    if (dots[k].outline) found.push_back(k);
  }
  const bool is_large = !found.empty() && dots[found[found.size() / 2]].outline->radius() > kLarge;
  for (const std::size_t k : spreadChoice(found.size(), is_large ? kSampledLarge : kSampledMarks))
    sample.push_back(found[k]);
  return sample;
}

/// Fits marks among all of them.
void fitAmong(const Sorted& sorted, const GreyPicture& picture, const PictureState& known,
              const std::vector<std::size_t>& which, std::vector<DotWork>& dots) {
  EdgeFitting work;
  work.noise = known.noise;
  work.beside = known.beside ? &*known.beside : nullptr;
  std::vector<Neighbour> neighbours;
  for (std::size_t next = 0; next < which.size(); ++next) {
    const std::size_t k = which[next];
    if (next + 1 < which.size()) fetchEdge(picture, dots[which[next + 1]]);
    DotWork& dot = dots[k];
    if (!dot.outline) continue;
    sorted.neighboursOf(k, known.blur, neighbours);
    const EdgeModel model = modelOf(dot, known);
    dot.state = stateOf(collectEdgePixels(picture, model, neighbours, known.pixels, work.table));
    if (!dot.refined()) continue;
    dot.fit = fitEdge(model, work);
    dot.state = dot.fit ? stateOf(*dot.fit, *dot.place) : DotState::kUnclear;
  }
}

/// Fits the marks with that beside their edges; how well they then meet the picture.
double misfitWith(const std::optional<EdgeDeparture>& beside, const Sorted& sorted, const GreyPicture& picture,
                  PictureState known, const std::vector<std::size_t>& sample, std::vector<DotWork>& dots) {
  known.beside = beside;
  known.pixels = PixelChoice::kWhatTells;
  fitAmong(sorted, picture, known, sample, dots);
  return misfitOf(dots);
}

/// What the edges have beside smooth ones, whether a lens blurred them or a filter behind the pixels: what leaves less.
std::optional<EdgeDeparture> edgesBeside(const Sorted& sorted, const GreyPicture& picture, const Greys& greys,
                                         const PictureState& known, const std::vector<std::size_t>& sample,
                                         std::vector<DotWork>& dots) {
  std::optional<EdgeDeparture> of_lens, of_filter = sampledBlur(greys.blur, greys.radius);
  if (greys.radius < kStraight * greys.blur) of_lens = roundBlur(greys.blur, greys.radius);
  const double with_lens = misfitWith(of_lens, sorted, picture, known, sample, dots);
  return misfitWith(of_filter, sorted, picture, known, sample, dots) < with_lens ? of_filter : of_lens;
}

}  // namespace

void fitMarks(const GreyPicture& picture, const PictureState& known, const std::vector<std::size_t>& which,
              std::vector<DotWork>& dots) {
  if (!which.empty()) fitAmong(Sorted(dots), picture, known, which, dots);
}

PictureState learnPicture(const GreyPicture& picture, std::vector<DotWork>& dots) {
  const std::vector<std::size_t> sample = sampleOf(dots);
  const Sorted sorted(dots);
  PictureState known;
  fitAmong(sorted, picture, known, sample, dots);
  const Greys greys = greysOf(dots);
  if (greys.marks == 0) return known;
  known.light = lightOf(dots, greys);
  known.noise = noiseOf(picture, greys, dots);
  known.ink_by_paper = greys.ink / greys.paper;
  known.blur = greys.blur;
  known.beside = edgesBeside(sorted, picture, greys, known, sample, dots);
  // Only with the light's slope and the edges' tails taken out the residuals beside the edges are the noise.
  fitAmong(sorted, picture, known, sample, dots);
  known.noise = noiseOf(picture, greysOf(dots), dots);
  known.pixels = PixelChoice::kWhatTells;
  return known;
}

double misfitOf(const std::vector<DotWork>& dots) {
  std::vector<double> ratios;
  for (const DotWork& dot : dots) {
    if (!dot.refined()) continue;
    const int freedom = dot.fit->edge.count - static_cast<int>(dot.fit->model.unknowns());
    if (freedom > 0) ratios.push_back(dot.fit->edge.squares / freedom);
  }
  return std::max(trimmedMean(ratios), 1.0);
}

}  // namespace refine
