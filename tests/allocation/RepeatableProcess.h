#pragma once

#include <ios>
#include <iostream>
#include <opencv2/core.hpp>
#include <streambuf>

#include "allocation/FailingAllocations.h"

/// Takes what is written and keeps nothing. A stream swallows the exceptions of its buffer, so a buffer that allocates
/// would hide failures, and not the library's.
class SilentBuffer : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char* /*text*/, std::streamsize size) override { return size; }
};

/// One thread and a silent console, so that a call allocates alike each time; matrices take part.
class RepeatableProcess {
 public:
  RepeatableProcess() {
    allocations::takeOverMatrices();
    cv::setNumThreads(1);
    cv::redirectError([](int, const char*, const char*, const char*, int, void*) { return 0; });
  }
  RepeatableProcess(const RepeatableProcess&) = delete;
  RepeatableProcess& operator=(const RepeatableProcess&) = delete;
  ~RepeatableProcess() {
    cv::redirectError(nullptr);
    std::cout.rdbuf(out_);
    std::cerr.rdbuf(err_);
    std::cout.flags(flags_);
    std::cout.precision(precision_);
  }

 private:
  SilentBuffer silent_;
  std::ios::fmtflags flags_ = std::cout.flags();
  std::streamsize precision_ = std::cout.precision();
  std::streambuf* out_ = std::cout.rdbuf(&silent_);
  std::streambuf* err_ = std::cerr.rdbuf(&silent_);
};
