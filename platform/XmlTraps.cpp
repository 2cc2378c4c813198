#include "platform/XmlTraps.h"

#include "platform/TextCursor.h"
#include "platform/TrapNames.h"

namespace documents {
namespace {

constexpr const char* kUnfinishedTag = "an unfinished tag at its end";
constexpr std::string_view kNameLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-";

const char* trapInType(std::string_view type) {
  if (type == "binary") return kBase64;
  return type == "str" ? "a text of a named type" : nullptr;
}

/// Goes through a text as the parser does: wherever the parser gives up, what this does from there on is of no matter.
class XmlScanner {
 public:
  explicit XmlScanner(std::string_view text) : cursor_(text) {}

  const char* trap() {
    while (!cursor_.atEnd()) {
      if (const char* const trap = trapInPiece()) return trap;
    }
    return nullptr;
  }

 private:
  /// In a text, quoted or not, an opening bracket always begins a tag or a comment. A carriage return cuts off the rest
  /// of its line, in comments and between the attributes of a tag too.
  const char* trapInPiece() {
    cursor_.skipTo("<&\r");
    if (cursor_.startsWith("&")) return trapInEntity();
    if (cursor_.startsWith("<!--")) {
      skipComment();
    } else if (cursor_.startsWith("<")) {
      return trapInTag();
    } else {
      cursor_.leaveLine();
    }
    return nullptr;
  }

  /// The character behind the ampersand may be any, a bracket or a carriage return too.
  const char* trapInEntity() {
    cursor_.skip(1);
    if (cursor_.atEnd()) return kUnfinishedTag;
    cursor_.skip(1);
    cursor_.skipTo(";");
    return nullptr;
  }

  void skipComment() {
    cursor_.skip(4);
    cursor_.skipTo("-\r");
    while (!cursor_.atEnd() && !cursor_.startsWith("-->")) {
      if (cursor_.startsWith("\r")) {
        cursor_.leaveLine();
      } else {
        cursor_.skip(1);
      }
      cursor_.skipTo("-\r");
    }
    cursor_.skip(3);
  }

  const char* trapInTag() {
    cursor_.skip(1);
    const bool isOpening = !cursor_.startsWithOneOf("/?!");
    if (isOpening && ++level_ > kMostLevels) return kTooDeep;
    if (cursor_.startsWith("/") && level_ > 0) --level_;
    return trapInAttributes(isOpening && level_ > 1);
  }

  /// The type of the root is not looked at.
  const char* trapInAttributes(bool haveType) {
    for (skipSpaces(); !cursor_.atEnd() && !cursor_.startsWith(">"); skipSpaces()) {
      const std::string_view name = takeName();
      skipSpaces();
      if (cursor_.startsWith("=")) {
        cursor_.skip(1);
        if (const char* const trap = trapInValue(haveType && name == "type_id")) return trap;
      } else if (name.empty()) {
        cursor_.skip(1);
      }
    }
    cursor_.skip(1);
    return nullptr;
  }

  const char* trapInValue(bool isType) {
    skipSpaces();
    if (cursor_.atEnd()) return kUnfinishedTag;
    const std::string_view quote = cursor_.rest().substr(0, 1);
    cursor_.skip(1);
    const std::string_view value = cursor_.rest().substr(0, cursor_.rest().find(quote));
    cursor_.skip(value.size() + 1);
    return isType ? trapInType(value) : nullptr;
  }

  void skipSpaces() {
    cursor_.skipOver(" \t\n");
    while (cursor_.startsWith("\r")) {
      cursor_.leaveLine();
      cursor_.skipOver(" \t\n");
    }
  }

  std::string_view takeName() {
    const std::string_view rest = cursor_.rest();
    cursor_.skipOver(kNameLetters);
    return rest.substr(0, rest.size() - cursor_.rest().size());
  }

  TextCursor cursor_;
  std::size_t level_ = 0;  ///< Elements around the cursor.
};

}  // namespace

const char* trapInXml(std::string_view text) { return XmlScanner(text).trap(); }

}  // namespace documents
