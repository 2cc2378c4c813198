#include <fstream>
#include <functional>
#include <iterator>
#include <thread>

#include "OneSet.h"
#include "polarline/errors.h"
#include "polarline/exit_code.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

/// A station that does something whenever the worker is between two sets.
struct Watch : OneSet {
  std::string inbox = set.parent.file("inbox");
  std::chrono::steady_clock::time_point begin = std::chrono::steady_clock::now();

  Watch() { fs::create_directory(inbox); }
  void drop(const std::string& name) const { fs::copy(set.folder, inbox + "/" + name); }
  void finish(const std::string& name, const std::string& content = "") const {
    std::ofstream(inbox + "/" + name + "/ready") << content;
  }
  /// What the station does with its first set when that was told; its file `ready` is of another time then.
  void afterTheFirst(const std::function<void()>& act) {
    options.on_set = [this, act](const BatchResult& result, std::size_t, std::size_t) {
      told.push_back(result);
      if (told.size() > 1) return;
      act();
      const std::string ready = inbox + "/one/ready";
      fs::last_write_time(ready, fs::last_write_time(ready) + std::chrono::seconds(1));
    };
  }
  static std::string metadata(const BatchResult& result) {
    std::ifstream stream(fs::path(result.document).replace_extension(".metadata.json"));
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  /// Until so many are told, for a minute at most.
  BatchOutcome until(std::size_t count) {
    options.go_on_with_next = [this, count] {
      return told.size() < count && std::chrono::steady_clock::now() - begin < std::chrono::minutes(1);
    };
    return watchFolder(inbox, options);
  }
};

TEST_F(Watch, TakesASetWhenItIsReady) {
  drop("one");
  std::thread station([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_TRUE(told.empty());
    finish("one", "serial=A1\n");
  });
  const BatchOutcome outcome = until(1);
  station.join();
  EXPECT_EQ(outcome.judged, 1U);
  EXPECT_EQ(outcome.exit_code, kInterrupted);
  EXPECT_EQ(told.at(0).set, inbox + "/one");
  EXPECT_EQ(documents().size(), 1U);
}

TEST_F(Watch, TakesSetsThatWereReadyBefore) {
  drop("one");
  finish("one");
  drop("two");
  std::ofstream(inbox + "/two/limits.txt") << "dy_means<=0\n";
  finish("two");
  EXPECT_EQ(until(2).judged, 2U);
  told.clear();
  EXPECT_EQ(until(2).there, 2U);
}

TEST_F(Watch, SaysWhatCannotBeUsedAndGoesOn) {
  drop("one");
  finish("one", "no metadata");
  drop("two");
  finish("two");
  const BatchOutcome outcome = until(2);
  EXPECT_EQ(outcome.judged, 1U);
  EXPECT_EQ(outcome.failed, 1U);
  const BatchResult& refused = told.at(told[0].state == BatchState::kRefused ? 0 : 1);
  EXPECT_EQ(refused.state, BatchState::kRefused);
  EXPECT_EQ(refused.exit_code, kUnusable);
  EXPECT_THAT(refused.text, HasSubstr("one/ready: 'no metadata' was found"));
}

TEST_F(Watch, TakesASetAgainWhoseReadyIsWrittenAnew) {
  drop("one");
  finish("one", "serial=A1\n");
  afterTheFirst([this] { finish("one", "serial=A2\n"); });
  EXPECT_EQ(until(2).judged, 1U);
  ASSERT_EQ(told.size(), 2U);
  EXPECT_EQ(told[1].state, BatchState::kThere);
  EXPECT_EQ(told[1].document, told[0].document);
  EXPECT_THAT(metadata(told[0]), AllOf(HasSubstr("A2"), Not(HasSubstr("A1"))));
}

TEST_F(Watch, JudgesASetAgainWhoseFilesChangedWithItsReady) {
  drop("one");
  finish("one");
  afterTheFirst([this] {
    std::ofstream(inbox + "/one/limits.txt") << "dy_means<=0\n";
    finish("one");
  });
  EXPECT_EQ(until(2).judged, 2U);
  ASSERT_EQ(told.size(), 2U);
  EXPECT_EQ(told[1].verdict, Verdict::kFail);
  EXPECT_NE(told[1].document, told[0].document);
}

TEST_F(Watch, NeedsAFolder) { EXPECT_THROW(watchFolder(set.parent.file("none"), options), InputError); }

}  // namespace
}  // namespace polarline
