#include "calibrations/document/Document.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "calibrations/document/JsonText.h"
#include "calibrations/document/LiteralText.h"
#include "calibrations/document/TextFile.h"
#include "calibrations/document/XmlText.h"
#include "calibrations/document/YamlText.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view behindBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::string_view behindComments(std::string_view text) {
  for (text = behindBlanks(text); text.starts_with('#'); text = behindBlanks(text)) {
    text = text.substr(std::min(text.find('\n'), text.size()));
  }
  return text;
}

Syntax syntaxOf(std::string_view text) {
  const std::string_view content = behindBlanks(text);
  if (content.starts_with('<')) return Syntax::kXml;
  const std::string_view code = behindComments(content);
  if (!code.starts_with('{')) return Syntax::kYaml;
  const std::string_view first = behindComments(code.substr(1));
  if (first.starts_with('\'') || code != content) return Syntax::kLiteral;
  const bool isJson = first.starts_with('"') || first.starts_with('}') || first.empty();
  return isJson ? Syntax::kJson : Syntax::kYaml;
}

std::vector<Value> valuesOf(const std::string& text, Syntax syntax, const std::string& path) {
  switch (syntax) {
    case Syntax::kXml:
      return {valueOfXml(text, path)};
    case Syntax::kJson:
      return {valueOfJson(text, path)};
    case Syntax::kLiteral:
      return {valueOfLiteral(text, path)};
    default:
      return valuesOfYaml(text, path);
  }
}

}  // namespace

std::vector<Document> readDocuments(const std::string& path) {
  const std::string text = textOfFile(path);
  const Syntax syntax = syntaxOf(text);
  std::vector<Document> documents;
  std::vector<Value> values = valuesOf(text, syntax, path);
  for (Value& value : values) {
    const std::string place = values.size() == 1 ? path : fmt::format("{}: document {}", path, documents.size() + 1);
    if (value.kind != Value::Kind::kMap) throw polarline::InputError(place, "holds no keys; a calibration was wanted");
    documents.push_back({place, syntax, std::move(value)});
  }
  return documents;
}

}  // namespace calibrations
