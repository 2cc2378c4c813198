#include <filesystem>

#include "CommandTest.h"
#include "report/MadeFleet.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

/// The page, by 'check --report' and by 'report'.
struct Report : CommandTest {
  std::string page = set.parent.file("out.html");
  std::string json = set.parent.file("r.json");

  static nlohmann::json dataOf(const std::string& html) {
    const std::size_t element = html.find("id=\"polarline-data\"");
    const std::size_t begin = html.find('>', element) + 1;
    return nlohmann::json::parse(html.substr(begin, html.find("</script>", begin) - begin));
  }
  nlohmann::json data() const { return dataOf(set.parent.read("out.html")); }
  void refused(const std::vector<std::string>& arguments, const std::string& words) const {
    const CommandRun run = this->run(arguments);
    EXPECT_EQ(run.exit_code, 2) << run.out;
    EXPECT_THAT(run.err, HasSubstr(words));
    EXPECT_FALSE(set.parent.has("out.html"));
    isInWords(run);
    nothingHalf();
  }
};

TEST_F(Report, IsWrittenByACheckBesideItsOtherResults) {
  const CommandRun run = check({"--report", page, "--json", "-", "--limit", "dy_means<=1e-9"});
  EXPECT_EQ(run.exit_code, 1) << run.err;
  const auto document = nlohmann::json::parse(run.out);
  const nlohmann::json view = data()["checks"][0];
  EXPECT_EQ(view["headline"], "FAIL: the limit does not hold.");
  EXPECT_EQ(view["document"]["pairs"][0]["figures"], document["pairs"][0]["figures"]);
  EXPECT_FALSE(view["details"][0]["pictures"]["left"].is_null());
  EXPECT_THAT(set.parent.read("out.html"), Not(HasSubstr(set.parent.path().string())));
}

TEST_F(Report, OfADocumentIsThatOfItsCheck) {
  EXPECT_EQ(check({"--report", page, "--json", json, "--refine"}).exit_code, 0);
  nlohmann::json by_check = data();
  const CommandRun run = this->run({"report", json, "-o", page});
  EXPECT_EQ(run.exit_code, 0) << run.err;
  EXPECT_EQ(run.out, "Report: " + page + "\n");
  nlohmann::json by_report = data();
  EXPECT_EQ(by_check["command"], "polarline check set --report out.html --json r.json --refine");
  EXPECT_EQ(by_report["command"], "polarline report r.json -o out.html");
  for (nlohmann::json* each : {&by_check, &by_report}) {
    each->erase("made");
    each->erase("command");
  }
  EXPECT_TRUE(by_check == by_report);
}

TEST_F(Report, OfAFailedRunSaysWhy) {
  fs::remove(set.file("list.txt"));
  EXPECT_EQ(check({"--report", page}).exit_code, 2);
  EXPECT_THAT(data()["checks"][0]["headline"].get<std::string>(), HasSubstr("list.txt"));
}

TEST_F(Report, GoesToStandardOutput) {
  EXPECT_EQ(check({"--json", json, "--quiet"}).exit_code, 0);
  const CommandRun run = this->run({"report", json, json, "-o", "-", "--title", "a <b>", "--no-pictures"});
  EXPECT_EQ(run.exit_code, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("<title>a &lt;b&gt;</title>"));
  EXPECT_EQ(dataOf(run.out)["checks"].size(), 2U);
  EXPECT_TRUE(dataOf(run.out)["checks"][0]["details"][0]["pictures"]["left"].is_null());
}

TEST_F(Report, WritesWhatItCameToAsJson) {
  EXPECT_EQ(check({"--json", json, "--quiet"}).exit_code, 0);
  fs::remove(set.file("left_0.png"));
  const CommandRun run = this->run({"report", json, "-o", page, "--json", "-"});  // Nothing else is there then.
  const auto result = DocumentCheck::of("report").parsed(run.out);
  EXPECT_EQ(result["page"], page);
  EXPECT_EQ(result["bytes"], fs::file_size(page));
  EXPECT_THAT(result["warnings"].dump(), HasSubstr("left_0.png"));
  EXPECT_THAT(run.err, HasSubstr("left_0.png"));
  fs::remove(page);
  refused({"report", json, "-o", "-", "--json", "-"}, "only one can be standard output");
  refused({"report", json, "-o", page, "--json", json}, "is an input; name another file for --json");
}

TEST_F(Report, TellsPathsOnlyWhenAsked) {
  EXPECT_EQ(check({"--json", json, "--quiet"}).exit_code, 0);
  EXPECT_THAT(run({"report", json, "-o", "-"}).out, Not(HasSubstr(set.folder.string())));
  EXPECT_THAT(run({"report", json, "-o", "-", "--paths"}).out, HasSubstr(set.folder.string()));
}

TEST_F(Report, KeepsTheBudget) {
  EXPECT_EQ(check({"--json", json, "--quiet"}).exit_code, 0);
  const auto view = dataOf(run({"report", json, "-o", "-", "--budget", "1"}).out)["checks"][0];
  EXPECT_EQ(view["details"].dump(), "[null,null]");
  EXPECT_THAT(view["left_out"].get<std::string>(), HasSubstr("Dots and pictures of all 2 pairs were left out"));
}

TEST_F(Report, RefusesWhatIsNoDocument) {
  refused({"report", set.file("polar.txt"), "-o", page}, "polar.txt: line 1, column 1: is no JSON");
  refused({"report", set.file("calib.json"), "-o", page}, "calib.json: schema: found nothing");
  refused({"report", set.parent.file("none.json"), "-o", page}, "none.json: cannot be read");
  refused({"report", set.folder.string(), "-o", page}, "is a folder");
  refused({"report", "-o", page}, "CHECK");
  EXPECT_EQ(check({"--json", json, "--quiet"}).exit_code, 0);
  std::vector<std::string> nine(9, json);
  nine.insert(nine.begin(), "report");
  nine.insert(nine.end(), {"-o", page});
  refused(nine, "9 documents were named; 1 to 8 were wanted");
  for (const std::string budget : {"-5", "1e6", "10MB"})
    refused({"report", json, "-o", page, "--budget=" + budget}, "--budget " + budget + ": a whole number of bytes was");
  refused({"report", json, "-o", json}, "is an input; name another file for -o");
  refused({"check", set.folder.string(), "--report", "-"}, "--report -: a file was wanted");
  refused({"check", set.folder.string(), "--report", set.file("calib.json")}, "name another file for --report");
}

TEST_F(Report, ThatCannotBeWrittenIsTold) {
  EXPECT_EQ(check({"--json", json, "--quiet"}).exit_code, 0);
  for (const CommandRun& run :
       {check({"--report", "/dev/full"}), this->run({"report", json, "-o", "/dev/full"}),
        check({"--report", set.parent.file("none/out.html")}), this->run({"report", json, "-o", "/none/out.html"})}) {
    EXPECT_EQ(run.exit_code, 4) << run.out;
    isInWords(run);
  }
  nothingHalf();
}

TEST_F(Report, OfTheDataOfAFleetIsTheFleetsPage) {
  set.parent.write("f.json", made_fleet::kText);
  const CommandRun run = this->run({"report", set.parent.file("f.json"), "-o", page, "--title", "Line 4"});
  EXPECT_EQ(run.exit_code, 0) << run.err;
  const std::string html = set.parent.read("out.html");
  EXPECT_EQ(dataOf(html)["fleet"], nlohmann::json::parse(made_fleet::kText));
  EXPECT_THAT(html, HasSubstr("<title>Line 4</title>"));
}

}  // namespace
