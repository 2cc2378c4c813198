#include "tools/polarline/PairProgress.h"

#include <fmt/format.h>

#include <cstdio>
#include <string>

#include "tools/polarline/Terminal.h"

namespace command {
namespace {

void draw(const std::string& text) { std::fputs(text.c_str(), terminal::errors()); }

}  // namespace

PairProgress::PairProgress(bool quiet, const char* what)
    : what_(what), visible_(!quiet && terminal::canRedraw(terminal::errors())) {}

void PairProgress::show(std::size_t done, std::size_t all) {
  if (!visible_ || done == 0) return;
  const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start_;
  const double left = passed.count() / static_cast<double>(done) * static_cast<double>(all - done);
  draw(fmt::format("\r{} {} of {}, {:.0f} s left\033[K", what_, done, all, left));
  std::fflush(terminal::errors());
  shown_ = true;
}

void PairProgress::clear() {
  if (shown_) draw("\r\033[K");
  shown_ = false;
}

}  // namespace command
