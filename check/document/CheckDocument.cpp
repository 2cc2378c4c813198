#include <memory>
#include <string>
#include <utility>

#include "check/document/InputsPart.h"
#include "check/document/JsonText.h"
#include "check/document/OutcomePart.h"
#include "check/document/PairPart.h"
#include "check/document/ToolPart.h"
#include "polarline/check.h"

namespace polarline {
namespace {

constexpr const char* kSchema = "polarline-check/1";

}  // namespace

/// The pairs stand before what is known only behind them.
class CheckDocument::Writer {
 public:
  explicit Writer(Sink sink) : sink_(std::move(sink)) {
    json_.object().member("schema", kSchema);
    writeToolAndLibrary(json_);
    json_.key("pairs").array();
  }
  void add(const PairCheck& pair) {
    writePair(json_, pair);
    sink_(json_.take());
  }
  void finish(const Check& check) {
    json_.end();
    json_.member("started", check.started).member("seconds", check.seconds);
    writeSet(json_, check);
    writeStatus(json_, check.status);
    writeConditions(json_, check);
    writeOutcome(json_, check);
    json_.end();
    sink_(json_.take() + "\n");
  }

 private:
  Sink sink_;
  JsonText json_;
};

CheckDocument::CheckDocument(Sink sink) : writer_(std::make_unique<Writer>(std::move(sink))) {}

CheckDocument::~CheckDocument() = default;

void CheckDocument::add(const PairCheck& pair) { writer_->add(pair); }

void CheckDocument::finish(const Check& check) { writer_->finish(check); }

std::string toJson(const Check& check) {
  std::string text;
  CheckDocument document([&text](const std::string& piece) { text += piece; });
  for (const PairCheck& pair : check.pairs) document.add(pair);
  document.finish(check);
  return text;
}

}  // namespace polarline
