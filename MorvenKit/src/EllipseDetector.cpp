#include "MorvenKit/EllipseDetector.h"

#include "MorvenKit/src/binarise/Binarize.h"
#include "MorvenKit/src/classify/ClassifyContourTree.h"

namespace kestrune::morvenkit {

namespace {

using TreeWalk = ContourCounts (*)(const ContourWalkInput&, std::vector<Ellipse<double>>&);

/// The assertions' texts are what the caller reads; they name the arguments as the callers know them.
ContourCounts detectBy(TreeWalk walk, const EllipseDetectorParams& params, cv::InputArray image,
                       std::vector<Ellipse<double>>& ellipses, cv::OutputArray binary, cv::InputArray mask) {
  CV_Assert(image.type() == CV_8UC1);
  CV_Assert(!image.empty());
  if (!mask.empty()) {
    CV_Assert(mask.size() == image.size());
    CV_Assert(mask.type() == CV_8UC1);
  }
  const cv::Mat grey = image.getMat();
  const cv::Mat allowed = mask.getMat();
  const cv::Mat traced = Binarize(grey, params);
  binary.assign(traced);
  const ContourTree tree = findContourTree(traced);
  return walk({params, tree, grey, traced, allowed}, ellipses);
}

}  // namespace

template <typename T>
ContourCounts EllipseDetector<T>::detect(cv::InputArray image, std::vector<Ellipse<T>>& ellipses,
                                         cv::OutputArray binary, cv::InputArray mask) const {
  return detectBy(ClassifyContourTree, params, image, ellipses, binary, mask);
}

template <typename T>
ContourCounts EllipseDetector<T>::detectframework(cv::InputArray image, std::vector<Ellipse<T>>& ellipses,
                                                  cv::OutputArray binary, cv::InputArray mask) const {
  return detectBy(ClassifyContourTreeFlat, params, image, ellipses, binary, mask);
}

template class EllipseDetector<double>;

}  // namespace kestrune::morvenkit
