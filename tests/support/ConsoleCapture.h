#pragma once

#include <cstddef>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

/// Collects what one console stream gets while it lives, and gives the stream its number format back at the end.
class StreamCapture {
 public:
  explicit StreamCapture(std::ostream& stream)
      : stream_(stream), flags_(stream.flags()), precision_(stream.precision()) {
    kept_ = stream.rdbuf(&buffer_);
  }
  StreamCapture(const StreamCapture&) = delete;
  StreamCapture& operator=(const StreamCapture&) = delete;
  ~StreamCapture() {
    stream_.rdbuf(kept_);
    stream_.flags(flags_);
    stream_.precision(precision_);
  }
  std::string text() const { return buffer_.str(); }
  /// How long the text was at each flush.
  const std::vector<std::size_t>& flushedAt() const { return buffer_.flushed_at; }

 private:
  struct Buffer : std::stringbuf {
    std::vector<std::size_t> flushed_at;
    int sync() override {
      flushed_at.push_back(static_cast<std::size_t>(pptr() - pbase()));
      return 0;
    }
  };

  std::ostream& stream_;
  std::ios::fmtflags flags_;
  std::streamsize precision_;
  Buffer buffer_;
  std::streambuf* kept_;
};

/// Both console streams.
class ConsoleCapture {
 public:
  std::string out() const { return out_.text(); }
  std::string err() const { return err_.text(); }
  const std::vector<std::size_t>& outFlushedAt() const { return out_.flushedAt(); }

 private:
  StreamCapture out_{std::cout};
  StreamCapture err_{std::cerr};
};
