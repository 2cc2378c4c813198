#include "platform/ConsoleRecord.h"

namespace console {

void Record::sayAgain() const {
  for (const Piece& piece : pieces_) {
    std::ostream& stream = piece.stream == Stream::kOut ? out() : err();
    stream.write(piece.text.data(), static_cast<std::streamsize>(piece.text.size()));
    if (piece.flushed) stream.flush();
  }
}

void Record::add(Stream stream, std::string_view text) {
  if (pieces_.empty() || pieces_.back().stream != stream || pieces_.back().flushed) {
    pieces_.push_back({stream, "", false});
  }
  pieces_.back().text += text;
}

void Record::flushed() {
  if (!pieces_.empty()) pieces_.back().flushed = true;
}

Recording::Tap::int_type Recording::Tap::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return traits_type::not_eof(character);
  const char one = traits_type::to_char_type(character);
  return xsputn(&one, 1) == 1 ? character : traits_type::eof();
}

std::streamsize Recording::Tap::xsputn(const char* text, std::streamsize length) {
  record_.add(stream_, {text, static_cast<std::size_t>(length)});
  return to_.write(text, length) ? length : 0;
}

int Recording::Tap::sync() {
  record_.flushed();
  return to_.flush() ? 0 : -1;
}

Recording::Recording(Record& record)
    : out_tap_(console::out(), record, Record::Stream::kOut),
      err_tap_(console::err(), record, Record::Stream::kErr),
      out_(&out_tap_),
      err_(&err_tap_),
      redirection_(out_, err_) {
  out_.copyfmt(out_tap_.to());
  err_.copyfmt(err_tap_.to());
  out_.tie(nullptr);  // What the streams behind them are tied to they flush themselves.
  err_.tie(nullptr);
}

}  // namespace console
