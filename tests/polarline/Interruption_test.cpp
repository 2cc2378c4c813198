#include <sys/stat.h>

#include <fstream>
#include <thread>

#include "CommandTest.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

/// Commands that look at no signal between their steps: they end at once, and leave what was there as it was.
struct Interruption : CommandTest {
  Interruption() { fs::create_directory(set.parent.file("made")); }

  std::string made(const char* name) const { return set.parent.file(std::string("made/") + name); }
  std::string pipe(const char* name) const {
    const std::string path = set.parent.file(name);
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
    return path;
  }
  void endsAtOnce(const std::vector<std::string>& arguments, double seconds = 0.2) {
    options.seconds_to_signal = seconds;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
      options.late_signal = signal;
      const CommandRun run = this->run(arguments);
      EXPECT_EQ(run.exit_code, 130) << run.out << run.err;
      EXPECT_LT(run.seconds_from_signal, 0.4 * SLOWNESS);
      EXPECT_THAT(run.err, HasSubstr("polarline: interrupted; nothing half was left"));
      EXPECT_TRUE(fs::is_empty(set.parent.file("made")));
      nothingHalf();
    }
  }
};

// A reader of a pipe waits until somebody writes.
TEST_F(Interruption, EndsADetectionAtOnce) {
  endsAtOnce({"detect", pipe("picture.png"), "--target", set.file("target.ini"), "--out", made("seen"), "--json",
              made("r.json")});
}

TEST_F(Interruption, EndsAnImportAtOnce) { endsAtOnce({"import", pipe("calib.json"), "-o", made("c.json")}); }

TEST_F(Interruption, EndsAnInitAtOnce) {
  endsAtOnce({"init", made("set"), "--left", set.file("left_*.png"), "--right", set.file("right_*.png"), "--board",
              "dots:9x7:20", "--calibration", pipe("calib.json")});
}

TEST_F(Interruption, EndsABoardAtOnce) {
  endsAtOnce({"board", "--board", "dots:41x41:6", "--paper", "A3", "--dpi", "600", "-o", made("board.png"), "--json",
              made("board.json")},
             0.0);
}

TEST_F(Interruption, EndsASimulationAtOnce) {
  endsAtOnce({"simulate", "ring_default_board", made("set"), "--pairs", "20"});
}

/// The signal comes while the first of two results waits for its reader.
TEST_F(Interruption, LetsResultsThatBelongTogetherBeWritten) {
  const std::string first = pipe("first.csv");
  std::thread reader([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(800));
    std::ifstream stream(first);
    while (stream.get() != std::ifstream::traits_type::eof()) {
    }
  });
  options.seconds_to_signal = 0.4;
  const CommandRun run = this->run({"detect", set.file("left_0.png"), "--target", set.file("target.ini"), "--out",
                                    made("seen"), "--csv", first, "--json", made("r.json")});
  reader.join();
  EXPECT_EQ(run.exit_code, 0) << run.err;
  EXPECT_TRUE(fs::exists(made("r.json")));
  EXPECT_TRUE(fs::exists(made("seen/left_0_overlay.png")));
  nothingHalf();
}

TEST_F(Interruption, DoesNotWaitForResultsForever) {
  options.seconds_to_signal = 0.4;
  const CommandRun run = this->run(
      {"detect", set.file("left_0.png"), "--target", set.file("target.ini"), "--csv", pipe("a.csv"), "--quiet"});
  EXPECT_EQ(run.exit_code, 130) << run.err;
  EXPECT_GT(run.seconds_from_signal, 1.0);
  EXPECT_LT(run.seconds_from_signal, 5.0 * SLOWNESS);
}

}  // namespace
