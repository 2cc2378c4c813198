#include "MorvenKit/src/contours/ContourTree.h"

#include <opencv2/imgproc.hpp>

namespace kestrune::morvenkit {

ContourTree findContourTree(const cv::Mat& binary) {
  ContourTree tree;
  if (!binary.empty()) {
    cv::findContours(binary, tree.contours, tree.hierarchy, cv::RETR_TREE, cv::CHAIN_APPROX_NONE);
  }
  return tree;
}

}  // namespace kestrune::morvenkit
