#include "calibrations/document/ValueBuilder.h"

#include <utility>

#include "calibrations/document/Shown.h"

namespace calibrations {

void ValueBuilder::countMore(std::size_t count) {
  count_ += count;
  if (count_ > kMost) throw UnreadableValue("more than " + std::to_string(kMost) + " values");
}

void ValueBuilder::begin(Value::Kind kind) {
  countMore(1);
  if (open_.size() == kDeepest) throw UnreadableValue("more than " + std::to_string(kDeepest) + " levels");
  Value value;
  value.kind = kind;
  open_.push_back({std::move(value), std::nullopt});
}

const Value& ValueBuilder::end() {
  Value value = std::move(open_.back().value);
  open_.pop_back();
  return add(std::move(value));
}

void ValueBuilder::key(const std::string& key) {
  Open& map = open_.back();
  if (map.value.keys.size() == kMostKeys)
    throw UnreadableValue("more than " + std::to_string(kMostKeys) + " keys in one map");
  if (map.value.member(key) != nullptr) throw UnreadableValue("the key " + shown(key) + " twice");
  map.key = key;
}

const Value& ValueBuilder::text(std::string text) {
  countMore(1);
  Value value;
  value.kind = Value::Kind::kText;
  value.text = std::move(text);
  return add(std::move(value));
}

const Value& ValueBuilder::again(const Value& value) {
  countMore(value.count());
  return add(value);
}

bool ValueBuilder::wantsKey() const {
  return !open_.empty() && open_.back().value.kind == Value::Kind::kMap && !open_.back().key;
}

const Value& ValueBuilder::add(Value value) {
  if (open_.empty()) return whole_.emplace(std::move(value));
  Open& outer = open_.back();
  if (outer.key) outer.value.keys.push_back(*std::exchange(outer.key, std::nullopt));
  return outer.value.items.emplace_back(std::move(value));
}

}  // namespace calibrations
