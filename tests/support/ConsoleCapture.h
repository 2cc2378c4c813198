#pragma once

#include <iostream>
#include <sstream>
#include <string>

/// Collects what one console stream gets while it lives, and gives the stream its number format back at the end.
class StreamCapture {
 public:
  explicit StreamCapture(std::ostream& stream)
      : stream_(stream), flags_(stream.flags()), precision_(stream.precision()) {
    kept_ = stream.rdbuf(text_.rdbuf());
  }
  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;
  ~StreamCapture() {
    stream_.rdbuf(kept_);
    stream_.flags(flags_);
    stream_.precision(precision_);
  }
  std::string text() const { return text_.str(); }

 private:
  std::ostream& stream_;
  std::ios::fmtflags flags_;
  std::streamsize precision_;
  std::ostringstream text_;
  std::streambuf* kept_;
};

/// Both console streams.
class ConsoleCapture {
 public:
  std::string out() const { return out_.text(); }
  std::string err() const { return err_.text(); }

 private:
  StreamCapture out_{std::cout};
  StreamCapture err_{std::cerr};
};
