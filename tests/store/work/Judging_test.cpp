#include "store/work/Judging.h"

#include "OneSet.h"
#include "check/set/Fingerprint.h"
#include "polarline/errors.h"
#include "polarline/exit_code.h"
#include "support/FullDevice.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

struct Judging : OneSet {
  std::string place = set.parent.file("d.json");
  whole_file::PartialFile file{place};
};

TEST_F(Judging, WritesWhatACheckWrites) {
  options.check.limits = {"dy_means<=10"};
  options.check.settings = {"discalsave=0"};
  options.check.refine = true;
  options.check.pairs = {0, 0};
  const Check check = judgeInto(file, filesOf(listed(), options), options).check;
  EXPECT_EQ(check.verdict, Verdict::kPass);
  EXPECT_TRUE(check.pairs.at(0).points.id.empty());  // Nothing grows with the pairs.
  file.commit();
  CheckOptions same = options.check;
  EXPECT_EQ(withoutTimes(set.parent.read("d.json")), withoutTimes(toJson(set.check(same))));
}

TEST_F(Judging, TakesFilesInPlaceOfTheSets) {
  options.files.limits = set.parent.write("ours.txt", "dy_means<=0\n");
  options.files.list = "ignored";
  const Set files = filesOf(listed(), options);
  EXPECT_EQ(files.folder, set.folder.string());
  EXPECT_EQ(files.list, "");
  EXPECT_EQ(judgeInto(file, files, options).check.verdict, Verdict::kFail);
}

TEST_F(Judging, KnowsTheIdBeforeTheCheck) {
  EXPECT_EQ(idOf(filesOf(listed(), options), options), set.check().id);
  const std::string before = idOf(filesOf(listed(), options), options);
  set.append("polar.txt", "\n");
  EXPECT_NE(idOf(filesOf(listed(), options), options), before);
  fs::remove(set.file("left_0.png"));
  EXPECT_EQ(idOf(filesOf(listed(), options), options), "");
}

TEST_F(Judging, ThatIsEndedIsTold) {
  options.go_on = [] { return false; };
  EXPECT_EQ(judgeInto(file, filesOf(listed(), options), options).check.status.exit_code, kInterrupted);
}

TEST_F(Judging, OnAFullDiskIsNoResult) {
  const Set files = filesOf(listed(), options);
  const FullDevice full;
  EXPECT_THROW(
      {
        judgeInto(file, files, options);
        file.commit();
      },
      OutputError);
  EXPECT_FALSE(fs::exists(place));
}

}  // namespace
}  // namespace polarline
