#pragma once

#include <cstdint>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Console.h"

namespace console {

/// What was printed, over both streams in its order, to be said again.
class Record {
 public:
  /// On the streams that the calling thread prints to by now.
  void sayAgain() const;

 private:
  friend class Recording;

  enum class Stream : std::uint8_t { kOut, kErr };
  struct Piece {
    Stream stream;
    std::string text;
    bool flushed;
  };

  void add(Stream stream, std::string_view text);
  void flushed();

  std::vector<Piece> pieces_;
};

/// While it lives, what the calling thread prints goes where it went before, and into a record, too. A number format
/// that is set meanwhile ends with it.
class Recording {
 public:
  /// `record` must outlive it.
  explicit Recording(Record& record);

 private:
  class Tap : public std::streambuf {
   public:
    Tap(std::ostream& to, Record& record, Record::Stream stream) : to_(to), record_(record), stream_(stream) {}
    std::ostream& to() { return to_; }

   private:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize length) override;
    int sync() override;

    std::ostream& to_;
    Record& record_;
    Record::Stream stream_;
  };

  Tap out_tap_, err_tap_;
  std::ostream out_, err_;
  Redirection redirection_;
};

}  // namespace console
