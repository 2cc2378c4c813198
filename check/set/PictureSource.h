#pragma once

#include <array>
#include <future>
#include <string>
#include <vector>

#include "polar/run/PolarCore.h"
#include "polarline/check.h"
#include "polarline/set.h"

namespace polarline {

/// The pictures of a list, read and decoded ahead by a thread of its own while the pair before is evaluated: no more
/// than two pairs are held at once. Or pictures in memory, which are only hashed ahead.
class ListedPictures final : public ImageSource {
 public:
  /// `first`: position of the first of the pairs in its list; the roles of the inputs count from there.
  /// `given`: all pictures of the list, which are then taken in place of files; outlives this.
  ListedPictures(std::vector<ListedPair> pairs, std::size_t first, const Pictures* given = nullptr);

  std::size_t pairs() const override { return pairs_.size(); }
  std::pair<cv::Mat, cv::Mat> take(std::size_t index) override;

  const ListedPair& listed(std::size_t index) const { return pairs_.at(index); }
  /// The place of a pair's side in the list, for messages; empty for a picture in memory.
  std::string pathOf(std::size_t index, bool left) const;
  /// Of the first left picture; empty while none was read.
  const cv::Size& size() const { return size_; }
  /// Of the pictures that were taken last; empty where one can't be had.
  const std::array<cv::Size, 2>& lastSizes() const { return last_sizes_; }
  /// Whether they are JPEGs that lack their ends.
  const std::array<bool, 2>& lastCutOff() const { return last_cut_off_; }
  /// These pictures themselves, until they are let go or the next are taken.
  const std::array<cv::Mat, 2>& lastPictures() const { return last_; }
  void letGo() { last_ = {}; }
  bool hasColour() const { return has_colour_; }
  /// Every picture with its hash; those that no run took are hashed now.
  std::vector<SetInput> inputs();

 private:
  struct TakenPair {
    cv::Mat left, right;
    std::string left_hash, right_hash;
    std::array<bool, 2> cut_off;
  };
  TakenPair read(std::size_t index) const;
  cv::Mat given(std::size_t index, bool left) const;
  std::string hashOf(std::size_t index, bool left) const;

  std::vector<ListedPair> pairs_;
  std::size_t first_ = 0;
  const Pictures* given_;
  std::future<TakenPair> ahead_;
  std::vector<SetInput> inputs_;
  cv::Size size_;
  std::array<cv::Size, 2> last_sizes_;
  std::array<bool, 2> last_cut_off_{};
  std::array<cv::Mat, 2> last_;
  bool has_colour_ = false;
};

}  // namespace polarline
