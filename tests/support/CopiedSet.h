#pragma once

#include <filesystem>
#include <opencv2/imgcodecs.hpp>
#include <string>

#include "polarline/check.h"
#include "support/HiddenDot.h"
#include "support/MemoryRun.h"
#include "support/RenderedSet.h"
#include "support/TempFolder.h"
#include "tools/scene/Truth.h"

/// A copy of a rendered set in a folder of its own, which a test may spoil and then check.
struct CopiedSet {
  TempFolder parent;
  std::filesystem::path folder;
  const RenderedSet& rendered;

  explicit CopiedSet(const RenderedSet& set = MemoryRun::twoPairs(), const std::string& name = "set")
      : folder(parent.path() / name), rendered(set) {
    std::filesystem::copy(std::filesystem::path(set.file("list.txt")).parent_path(), folder,
                          std::filesystem::copy_options::recursive);
    std::filesystem::remove(folder / "truth.json");
  }

  std::string file(const std::string& name) const { return (folder / name).string(); }
  void write(const std::string& name, const std::string& content) const {
    std::ofstream(folder / name, std::ios::binary) << content;
  }
  void append(const std::string& name, const std::string& content) const {
    std::ofstream(folder / name, std::ios::binary | std::ios::app) << content;
  }
  std::string read(const std::string& name) const { return TempFolder::contentOf(folder / name); }
  void cut(const std::string& name) const {
    std::filesystem::resize_file(folder / name, std::filesystem::file_size(folder / name) / 2);
  }

  cv::Mat picture(const std::string& name) const { return cv::imread(file(name), cv::IMREAD_UNCHANGED); }
  void write(const std::string& name, const cv::Mat& picture) const { cv::imwrite(file(name), picture); }
  /// Leaves nothing but grey of a picture.
  void blank(const std::string& name) const {
    const cv::Mat seen = picture(name);
    write(name, cv::Mat(seen.size(), seen.type(), cv::Scalar(90)));
  }
  /// Takes a dot away from a picture.
  void hide(bool left, std::size_t pair, std::int32_t id) const {
    const std::string name = (left ? "left_" : "right_") + std::to_string(pair) + ".png";
    const scene::PairTruth truth = scene::pairTruth(rendered.scene(), pair);
    const scene::DotTruth& dot = truth.dots.at(static_cast<std::size_t>(id));
    cv::Mat seen = picture(name);
    hideDot(seen, left ? dot.ellipse_left : dot.ellipse_right);
    write(name, seen);
  }
  /// Lists the first pair that often.
  void repeat(std::size_t pairs) const {
    std::string list = "#L R\n";
    for (std::size_t k = 0; k < pairs; ++k) list += "left_0.png right_0.png\n";
    write("list.txt", list);
  }

  polarline::Set set() const {
    polarline::Set named;
    named.folder = folder.string();
    return named;
  }
  polarline::Check check(const polarline::CheckOptions& options = {}) const { return polarline::check(set(), options); }
};
