#include "calibrations/document/YamlText.h"

#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/yaml.h>

#include <map>
#include <sstream>

#include "calibrations/document/ValueBuilder.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

/// Longer than any calibration in YAML; the parser takes its time.
constexpr std::size_t kLongestYaml = std::size_t{1} << 20;

/// Takes the parser's events. What an anchor names is kept, so that an alias can repeat it.
class YamlEvents : public YAML::EventHandler {
 public:
  std::vector<Value> values;
  int line = 1;  ///< Of the latest event.

  void OnDocumentStart(const YAML::Mark& mark) override {
    note(mark);
    // The parser takes some characters for an empty document, and stays where it is for ever.
    if (mark.pos == begin_) throw UnreadableValue("a character that begins no value");
    begin_ = mark.pos;
    anchored_.clear();
  }
  void OnDocumentEnd() override {
    std::optional<Value> value = builder_.take();
    if (value && value->kind != Value::Kind::kNothing) values.push_back(*std::move(value));
  }
  void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override {
    note(mark);
    if (builder_.wantsKey()) return builder_.key("");
    keep(anchor, builder_.nothing());
  }
  void OnAlias(const YAML::Mark& mark, YAML::anchor_t anchor) override {
    note(mark);
    const auto found = anchored_.find(anchor);
    if (found == anchored_.end()) throw UnreadableValue("an alias of nothing before it");
    if (builder_.wantsKey()) throw UnreadableValue("an alias as a key");
    builder_.again(found->second);
  }
  void OnScalar(const YAML::Mark& mark, const std::string& /*tag*/, YAML::anchor_t anchor,
                const std::string& value) override {
    note(mark);
    if (builder_.wantsKey()) return builder_.key(value);
    keep(anchor, builder_.text(value));
  }
  void OnSequenceStart(const YAML::Mark& mark, const std::string& /*tag*/, YAML::anchor_t anchor,
                       YAML::EmitterStyle::value /*style*/) override {
    begin(mark, anchor);
    builder_.beginList();
  }
  void OnSequenceEnd() override { end(); }
  void OnMapStart(const YAML::Mark& mark, const std::string& /*tag*/, YAML::anchor_t anchor,
                  YAML::EmitterStyle::value /*style*/) override {
    begin(mark, anchor);
    builder_.beginMap();
  }
  void OnMapEnd() override { end(); }

 private:
  void note(const YAML::Mark& mark) { line = mark.line + 1; }
  void begin(const YAML::Mark& mark, YAML::anchor_t anchor) {
    note(mark);
    if (builder_.wantsKey()) throw UnreadableValue("a list or a map as a key");
    open_.push_back(anchor);
  }
  void end() {
    const YAML::anchor_t anchor = open_.back();
    open_.pop_back();
    keep(anchor, builder_.end());
  }
  void keep(YAML::anchor_t anchor, const Value& value) {
    if (anchor != YAML::NullAnchor) anchored_[anchor] = value;
  }

  ValueBuilder builder_;
  int begin_ = -1;  ///< Where the document begins.
  std::vector<YAML::anchor_t> open_;
  std::map<YAML::anchor_t, Value> anchored_;
};

[[noreturn]] void refuse(const std::string& path, int line, const std::string& problem) {
  throw polarline::InputError(path + ": line " + std::to_string(line), problem);
}

}  // namespace

std::vector<Value> valuesOfYaml(const std::string& text, const std::string& path) {
  if (text.size() > kLongestYaml) {
    throw polarline::InputError(
        path, "is longer than " + std::to_string(kLongestYaml) + " characters; a calibration file was wanted");
  }
  std::istringstream stream(text);
  YamlEvents events;
  try {
    YAML::Parser parser(stream);
    while (parser.HandleNextDocument(events)) {
    }
  } catch (const UnreadableValue& found) {
    refuse(path, events.line, std::string("has ") + found.what() + ", which is not read");
  } catch (const YAML::Exception& error) {
    refuse(path, error.mark.line + 1, "is no YAML: " + error.msg);
  }
  if (events.values.empty()) throw polarline::InputError(path, "holds nothing; a calibration was wanted");
  return events.values;
}

}  // namespace calibrations
