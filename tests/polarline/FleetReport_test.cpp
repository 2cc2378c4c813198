#include <filesystem>
#include <string>
#include <vector>

#include "CommandTest.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

/// The page of a fleet whose one set was judged and merged by the command.
struct FleetReport : CommandTest {
  std::string results = set.parent.file("r.sqlite");
  std::string page = set.parent.file("fleet.html");
  std::string pages = set.parent.file("the pages");

  FleetReport() {
    set.parent.write("list.txt", set.folder.string() + "\tstation=1\tmodel=K2\n");
    const std::vector<std::string> store{"--store", set.parent.file("store")};
    const CommandRun batch =
        run({"batch", set.parent.file("list.txt"), store[0], store[1], "--limit", "dy_means<=1e-9"});
    EXPECT_EQ(batch.exit_code, 1) << batch.err;
    EXPECT_EQ(run({"merge", store[1], "-o", results}).exit_code, 0);
  }

  /// Those of the store without what the list said of the set.
  fs::path document() const {
    for (const auto& entry : fs::recursive_directory_iterator(set.parent.file("store")))
      if (entry.path().stem().string().size() == 64 && entry.path().extension() == ".json") return entry.path();
    return {};
  }
  nlohmann::json worst() const {
    const std::string html = set.parent.read("fleet.html");
    const std::size_t begin = html.find('>', html.find("id=\"polarline-data\"")) + 1;
    const nlohmann::json data = nlohmann::json::parse(html.substr(begin, html.find("</script>", begin) - begin));
    EXPECT_EQ(DocumentCheck::of("fleet").problem(data["fleet"]), "");
    return data["fleet"]["worst"];
  }
  void refused(const std::vector<std::string>& arguments, const std::string& words) const {
    const CommandRun run = this->run(arguments);
    EXPECT_EQ(run.exit_code, 2) << run.out;
    EXPECT_THAT(run.err, HasSubstr(words));
    EXPECT_FALSE(fs::exists(page) || fs::exists(pages));
  }
};

TEST_F(FleetReport, OfResultsLeadsToThePagesOfTheWorstSets) {
  const CommandRun run = this->run({"report", results, "-o", page, "--pages", pages, "--title", "Line 4"});
  EXPECT_EQ(run.exit_code, 0) << run.err;
  EXPECT_EQ(run.out, "Report: " + page + "\n");
  EXPECT_THAT(set.parent.read("fleet.html"), HasSubstr("<title>Line 4</title>"));
  ASSERT_EQ(worst().size(), 1U);
  const std::string name = document().stem().string() + ".html";
  EXPECT_EQ(worst()[0]["page"], "the%20pages/" + name);
  const std::string of_set = set.parent.read("the pages/" + name);
  EXPECT_THAT(of_set, HasSubstr("FAIL: the limit does not hold."));
  EXPECT_THAT(of_set, HasSubstr("<title>set: FAIL</title>"));
  EXPECT_THAT(set.parent.read("fleet.html"), Not(HasSubstr(set.parent.path().string())));
}

TEST_F(FleetReport, OfResultsMakesNoPagesOfSetsUnasked) {
  EXPECT_EQ(run({"report", results, "-o", page, "--quiet"}).out, "");
  EXPECT_EQ(worst()[0]["page"], nullptr);
}

TEST_F(FleetReport, TellsASetWhoseDocumentIsGoneAndDoesNotLeadToIt) {
  const std::string name = document().filename().string();
  fs::remove(document());
  const CommandRun run = this->run({"report", results, "-o", page, "--pages", pages});
  EXPECT_EQ(run.exit_code, 4) << "a page that was asked for is missing";
  EXPECT_THAT(run.err, HasSubstr(name));
  EXPECT_EQ(worst()[0]["page"], nullptr);
  EXPECT_TRUE(fs::is_empty(pages));
}

TEST_F(FleetReport, TellsItsPagesAsJson) {
  const std::string json = set.parent.file("made.json");
  const std::string name = document().stem().string();
  const auto told = [&](int exit_code = 0) {
    EXPECT_EQ(run({"report", results, "-o", page, "--pages", pages, "--json", json, "--quiet"}).exit_code, exit_code);
    return DocumentCheck::of("report").parsed(TempFolder::contentOf(json));
  };
  EXPECT_EQ(told()["worst"], nlohmann::json::array({pages + "/" + name + ".html"}));
  fs::remove(document());
  EXPECT_EQ(told(4)["worst"], nlohmann::json::array());
  EXPECT_EQ(told(4)["without_page"], nlohmann::json::array({name}));
}

TEST_F(FleetReport, RefusesWhatDoesNotGoTogether) {
  const std::string check = document().string();
  refused({"report", check, "-o", page, "--pages", pages}, "--pages: goes with the results of 'polarline merge'");
  refused({"report", check, results, "-o", page}, "r.sqlite: the results of a fleet have a page of their own");
  refused({"report", results, results, "-o", page}, "r.sqlite: the results of a fleet have a page of their own");
  refused({"report", results, "-o", results}, "-o");
  refused({"report", set.parent.file("store"), "-o", page}, "is a folder; a document was wanted (of a store: what ");
}

TEST_F(FleetReport, OfResultsInAFolderThatCannotBeWrittenIsMade) {
  const std::string folder = set.parent.file("fixed");
  fs::create_directory(folder);
  fs::rename(results, folder + "/r.sqlite");
  fs::permissions(folder, static_cast<fs::perms>(0555));
  fs::permissions(set.parent.path(), fs::perms::all);
  options.unprivileged = true;
  const CommandRun run = this->run({"report", folder + "/r.sqlite", "-o", page});
  EXPECT_EQ(run.exit_code, 0) << run.err;
  EXPECT_EQ(worst().size(), 1U);
  fs::permissions(folder, fs::perms::owner_all);
}

TEST_F(FleetReport, OfPagesThatCannotBeWrittenIsTold) {
  const CommandRun run = this->run({"report", results, "-o", page, "--pages", set.parent.file("list.txt")});
  EXPECT_EQ(run.exit_code, 4);
  EXPECT_THAT(run.err, HasSubstr("list.txt"));
  EXPECT_FALSE(fs::exists(page));
}

}  // namespace
