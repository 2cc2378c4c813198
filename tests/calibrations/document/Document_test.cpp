#include "calibrations/document/Document.h"

#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace {

using calibrations::Document;
using calibrations::readDocuments;
using calibrations::Syntax;

std::vector<Document> documentsOf(const std::string& text) {
  const TempFolder folder;
  return readDocuments(folder.write("file", text));
}

struct Case {
  const char* text;
  Syntax syntax;
};

class DocumentSyntax : public testing::TestWithParam<Case> {};

TEST_P(DocumentSyntax, IsToldByTheContent) {
  const std::vector<Document> documents = documentsOf(GetParam().text);
  ASSERT_EQ(documents.size(), 1U);
  EXPECT_EQ(documents[0].syntax, GetParam().syntax);
  ASSERT_NE(documents[0].root.member("a"), nullptr);
  EXPECT_EQ(documents[0].root.member("a")->text, "1");
}

INSTANTIATE_TEST_SUITE_P(
    All, DocumentSyntax,
    testing::Values(Case{"a: 1\n", Syntax::kYaml}, Case{"# {'a': 2}\na: 1", Syntax::kYaml},
                    Case{"{a: 1}", Syntax::kYaml}, Case{"%YAML:1.0\n---\na: 1", Syntax::kYaml},
                    Case{"\n  {\n \"a\": 1}", Syntax::kJson}, Case{"{'a': 1}", Syntax::kLiteral},
                    Case{"# b\n\n{\"a\": 1,}", Syntax::kLiteral}, Case{"{ # b\n'a': 1,}", Syntax::kLiteral},
                    Case{"<?xml version=\"1.0\"?>\n<opencv_storage><a>1</a></opencv_storage>", Syntax::kXml}));

TEST(DocumentPlace, SaysWhichOfSeveral) {
  const TempFolder folder;
  const std::string path = folder.write("file", "a: 1\n---\nb: 2\n");
  const std::vector<Document> documents = readDocuments(path);
  ASSERT_EQ(documents.size(), 2U);
  EXPECT_EQ(documents[0].place, path + ": document 1");
  EXPECT_EQ(documents[1].place, path + ": document 2");
}

TEST(DocumentRoot, IsAMap) {
  for (const char* text : {"[1, 2]", "text", "<?xml version=\"1.0\"?>"}) {
    EXPECT_THROW(documentsOf(text), polarline::InputError) << text;
  }
}

}  // namespace
