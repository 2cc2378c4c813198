#include "polarline/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "MadeDocument.h"
#include "polarline/errors.h"
#include "support/CopiedSet.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string between(const std::string& text, const std::string& begin, const std::string& end) {
  const std::size_t from = text.find(begin);
  EXPECT_NE(from, std::string::npos) << begin;
  const std::size_t start = from + begin.size();
  return text.substr(start, text.find(end, start) - start);
}

/// What the page's script reads.
Json dataOf(const std::string& page) {
  const std::string element = between(page, "id=\"polarline-data\"", "</script>");
  return Json::parse(element.substr(element.find('>') + 1));
}

std::string pageOf(const Check& check, const ReportOptions& options = {}) {
  return reportPage({{toJson(check), ""}}, options);
}

TEST(ReportPage, HasDataStaticPartAndTitle) {
  ReportOptions options;
  options.made = "2026-01-02T03:04:05Z";
  const std::string page = pageOf(made_document::check(), options);
  EXPECT_EQ(dataOf(page)["made"], options.made);
  EXPECT_EQ(dataOf(page)["checks"][0]["title"], "set");
  EXPECT_EQ(between(page, "<title>", "</title>"), "set: PASS");
  EXPECT_THAT(page, HasSubstr("<strong>PASS: the limit holds.</strong>"));
  EXPECT_THAT(page, Not(HasSubstr("@POLARLINE")));
  EXPECT_EQ(pageOf(made_document::check(), options), page) << "the same again";
  EXPECT_THAT(dataOf(pageOf(made_document::check()))["made"].get<std::string>(),
              ::testing::MatchesRegex("....-..-..T..:..:..Z"));
}

TEST(ReportPage, TakesNoTextForMarkup) {
  const std::string hostile = "</script><script>alert(1)</script><!-- \xE2\x80\xA8 @POLARLINE_DATA@ <img src=x>";
  Check check = made_document::check();
  check.name = check.pairs[0].left = check.status.text = check.limits[0].text = hostile;
  check.limits[0].why = hostile;
  check.warnings = {{"code", hostile, hostile}};
  ReportOptions options;
  options.title = hostile + "\xFF";
  const std::string honest = pageOf(made_document::check());
  const std::string page = pageOf(check, options);
  const auto count = [](const std::string& text, const std::string& piece) {
    std::size_t found = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) ++found;
    return found;
  };
  for (const char* markup : {"<script", "</script", "<!--", "<img", "<title", "<main"})
    EXPECT_EQ(count(page, markup), count(honest, markup)) << markup;
  EXPECT_EQ(dataOf(page)["checks"][0]["title"], hostile);
  EXPECT_EQ(dataOf(page)["checks"][0]["document"]["limits"][0]["text"], hostile);
}

/// The place of every value of a document; of a list, its first two stand for all.
std::vector<Json::json_pointer> placesIn(const Json& json, const Json::json_pointer& at = Json::json_pointer()) {
  std::vector<Json::json_pointer> places;
  for (const auto& [key, each] : json.items()) {
    if (json.is_array() && std::stoul(key) > 1) break;
    const Json::json_pointer place = json.is_array() ? at / std::stoul(key) : at / key;
    places.push_back(place);
    if (!each.is_structured()) continue;
    const auto within = placesIn(each, place);
    places.insert(places.end(), within.begin(), within.end());
  }
  return places;
}

/// Whether a page came of it; anything but a refusal that says why ends the test.
bool isTaken(const Json& document) {
  try {
    return !reportPage({{document.dump(), ""}}).empty();
  } catch (const InputError&) {
    return false;
  }
}

TEST(ReportDocument, WithAnyOneValueLessOrOtherIsTakenOrRefused) {
  const Json whole = made_document::fullDocument();
  std::set<std::string> can_be_left_out;
  const auto places = placesIn(whole);
  ASSERT_GT(places.size(), 200U);
  for (const auto& place : places) {
    SCOPED_TRACE(place.to_string());
    Json document = whole;
    Json& parent = document[place.parent_pointer()];
    if (parent.is_array())
      parent.erase(std::stoul(place.back()));
    else
      parent.erase(place.back());
    if (isTaken(document)) can_be_left_out.insert(place.to_string());
    for (const char* other : {"null", "-1", "1e308", "\"\"", "[]", "{}"}) {
      document = whole;
      document[place] = Json::parse(other);
      isTaken(document);
    }
  }
  EXPECT_THAT(can_be_left_out,
              ::testing::IsSupersetOf({"/cameras/extrinsics", "/diagnosis", "/diagnosis/correction", "/pairs/0/found",
                                       "/pairs/0/quality", "/pairs/0/refined", "/pairs/0/uncertainty",
                                       "/pairs/1/reason", "/summary/refined", "/warnings/0/pair"}));
  EXPECT_EQ(can_be_left_out.count("/schema") + can_be_left_out.count("/pairs/0/state"), 0U);
}

TEST(ReportTitles, AreDifferent) {
  const std::string text = toJson(made_document::check());
  Check nameless = made_document::check();
  nameless.name = "";
  const std::string page =
      reportPage({{text, "a.json"}, {text, "b.json"}, {toJson(nameless), "x/c.json"}, {toJson(nameless), ""}});
  const Json checks = dataOf(page)["checks"];
  EXPECT_EQ(checks[0]["title"], "set");
  EXPECT_EQ(checks[1]["title"], "set (2)");
  EXPECT_EQ(checks[2]["title"], "c.json");
  EXPECT_EQ(checks[3]["title"], "check");
  EXPECT_EQ(between(page, "<title>", "</title>"), "set, set (2), c.json, check");
}

TEST(ReportTitles, SayWhatElseIsOther) {
  Check before = made_document::check();
  before.inputs = {{"calibration", "c.json", "01"}, {"target", "t.ini", "02"}};
  Check after = before;
  after.inputs[0].sha256 = "03";
  const Json checks = dataOf(reportPage({{toJson(before), ""}, {toJson(after), ""}}))["checks"];
  EXPECT_EQ(checks[1]["title"], "set, other calibration");
}

TEST(ReportTitles, AreNoPaths) {
  Check check = made_document::check();
  check.name = "/home/karl/name";
  EXPECT_EQ(dataOf(pageOf(check))["checks"][0]["title"], "name");
  ReportOptions options;
  options.paths = true;
  EXPECT_EQ(dataOf(pageOf(check, options))["checks"][0]["title"], "/home/karl/name");
}

/// A file that is no input yet is known by the command alone.
TEST(ReportPaths, OfTheCommandAreFileNamesInMessagesToo) {
  Check check = made_document::check();
  check.status.text = "/home/Doe: Jane/secret project/lim.txt, line 1: 0.1 px/deg";
  check.warnings = {{"not_written", "secret project/c: x/c.json was not written", ""}};
  check.verdict = Verdict::kError;
  ReportOptions options;
  options.command = {"polarline",
                     "check",
                     "set",
                     "--limits",
                     "/home/Doe: Jane/secret project/lim.txt",
                     "--write-corrected=secret project/c: x/c.json"};
  const std::string page = pageOf(check, options);
  EXPECT_THAT(page, Not(HasSubstr("secret project")));
  EXPECT_THAT(page, Not(HasSubstr("Jane")));
  EXPECT_EQ(dataOf(page)["checks"][0]["headline"], "ERROR: lim.txt, line 1: 0.1 px/deg");
  EXPECT_EQ(dataOf(page)["checks"][0]["document"]["warnings"][0]["text"], "c.json was not written");
  options.paths = true;
  EXPECT_EQ(dataOf(pageOf(check, options))["checks"][0]["headline"], "ERROR: " + check.status.text);
}

TEST(ReportPictures, ThatAreNotFoundAreTold) {
  Check check = made_document::check();
  check.inputs = {{"left/0", "/gone/left_0.png", "01"}, {"right/0", "/gone/right_0.png", "02"}};
  std::vector<std::string> told;
  ReportOptions options;
  options.tell = [&](const std::string& text) { told.push_back(text); };
  pageOf(check, options);
  EXPECT_EQ(told, (std::vector<std::string>{"set: 2 of 2 pictures are neither where the document says nor beside it, "
                                            "such as /gone/left_0.png; the page goes without them"}));
  options.pictures = false;
  pageOf(check, options);
  EXPECT_EQ(told.size(), 1U) << "nobody wanted them";
}

TEST(ReportDocuments, AreOneToEight) {
  const ReportDocument document{toJson(made_document::check()), ""};
  EXPECT_THROW(reportPage({}), InputError);
  EXPECT_NO_THROW(reportPage(std::vector<ReportDocument>(8, document)));
  EXPECT_THROW(reportPage(std::vector<ReportDocument>(9, document)), InputError);
}

TEST(ReportFailed, RunIsAPage) {
  Check check;
  check.verdict = Verdict::kError;
  check.status.text = "polar.txt is missing";
  const Json view = dataOf(pageOf(check))["checks"][0];
  EXPECT_EQ(view["headline"], "ERROR: polar.txt is missing");
  EXPECT_TRUE(view["first_pair"].is_null());
  EXPECT_TRUE(view["details"].empty());
}

/// A page with nothing to show is the page without data.
TEST(ReportFailed, RunHasASmallPage) {
  Check check;
  check.verdict = Verdict::kError;
  EXPECT_LE(pageOf(check).size(), 350'000U);
}

/// Every figure of a real check is the document's to the last digit, and the rows agree with the figure.
TEST(ReportChecked, SetIsShownAsItWasMeasured) {
  const CopiedSet set;
  const std::string text = toJson(set.check());
  Json document = Json::parse(text);
  ReportOptions options;
  options.paths = true;
  const std::string page = reportPage({{text, ""}}, options);
  const Json view = dataOf(page)["checks"][0];
  for (std::size_t k = 0; k < 2; ++k) {
    const Json& details = view["details"][k];
    EXPECT_NEAR(details["statistics"]["dy"]["mean_abs"].get<double>(),
                document["pairs"][k]["figures"]["dy_means"].get<double>(), 1e-6);
    EXPECT_FALSE(details["pictures"]["left"].is_null());
    document["pairs"][k].erase("points");
  }
  EXPECT_EQ(view["document"].dump(), document.dump());
  options.paths = false;
  EXPECT_THAT(reportPage({{text, ""}}, options), Not(HasSubstr(set.folder.parent_path().string())));
  options.pictures = false;
  EXPECT_TRUE(dataOf(reportPage({{text, ""}}, options))["checks"][0]["details"][0]["pictures"]["left"].is_null());
}

TEST(ReportMany, PairsStayWithinTheBudget) {
  Check check = made_document::check();
  check.pairs.clear();
  for (std::size_t k = 0; k < 500; ++k) check.pairs.push_back(made_document::pair(k, 0.1));
  ReportOptions options;
  options.budget = 400000;
  const std::string page = pageOf(check, options);
  EXPECT_LT(page.size(), 1000000U);
  const Json view = dataOf(page)["checks"][0];
  EXPECT_EQ(view["document"]["pairs"].size(), 500U);
  EXPECT_THAT(view["left_out"].get<std::string>(), HasSubstr("of 500 pairs were left out"));
}

}  // namespace
}  // namespace polarline
