#include "calibrations/document/XmlText.h"

#include <fmt/format.h>

#include <opencv2/core/persistence.hpp>

#include "calibrations/document/ValueBuilder.h"
#include "platform/DocumentTraps.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

/// The recursion is bounded by the builder, which throws when a list begins too deep.
void build(ValueBuilder& builder, const cv::FileNode& node) {
  if (node.isMap() || node.isSeq()) {
    node.isMap() ? builder.beginMap() : builder.beginList();
    for (const cv::FileNode& each : node) {
      if (node.isMap()) builder.key(each.name());
      build(builder, each);
    }
    builder.end();
  } else if (node.isInt()) {
    builder.text(std::to_string(static_cast<int>(node)));
  } else if (node.isReal()) {
    builder.text(fmt::format("{}", static_cast<double>(node)));
  } else if (node.isString()) {
    builder.text(static_cast<std::string>(node));
  } else {
    builder.nothing();
  }
}

}  // namespace

Value valueOfXml(const std::string& text, const std::string& path) {
  if (const char* const trap = documents::trapIn(text)) {
    throw polarline::InputError(path, std::string("has ") + trap + ", which is not read");
  }
  try {
    const cv::FileStorage storage(text, cv::FileStorage::READ | cv::FileStorage::MEMORY);
    ValueBuilder builder;
    build(builder, storage.root());
    return builder.take().value_or(Value{});
  } catch (const UnreadableValue& found) {
    throw polarline::InputError(path, std::string("has ") + found.what() + ", which is not read");
  } catch (const std::exception&) {  // cv::Exception, and std::length_error for odd names.
    throw polarline::InputError(path, "is no OpenCV storage in XML");
  }
}

}  // namespace calibrations
