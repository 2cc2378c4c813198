#pragma once

#include <iostream>
#include <sstream>

/// Swallows the library's console lines while a benchmark measures.
class Quiet {
 public:
  Quiet() : out_(std::cout.rdbuf(text_.rdbuf())), err_(std::cerr.rdbuf(text_.rdbuf())) {}
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;
  ~Quiet() {
    std::cout.rdbuf(out_);
    std::cerr.rdbuf(err_);
  }

 private:
  std::ostringstream text_;
  std::streambuf* out_;
  std::streambuf* err_;
};
