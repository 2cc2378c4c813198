#include "polarline/check.h"

#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/UnnamedFile.h"
#include "platform/WholeFile.h"
#include "polarline/errors.h"
#include "polarline/report.h"
#include "tools/polarline/CheckTable.h"
#include "tools/polarline/Interruption.h"
#include "tools/polarline/JudgingOptions.h"
#include "tools/polarline/Outputs.h"
#include "tools/polarline/PairProgress.h"
#include "tools/polarline/Run.h"
#include "tools/polarline/Subcommand.h"
#include "tools/polarline/Terminal.h"

namespace command {
namespace {

struct Arguments {
  polarline::Set set;
  JudgingOptions judging;
  polarline::CheckOptions& options = judging.check;
  ResultOptions result;
  std::string report;
};

/// What the command says while the check runs, and behind it.
class Speaker {
 public:
  explicit Speaker(const ResultOptions& result)
      : is_quiet_(result.quiet || result.json == "-"),
        progress_(is_quiet_),
        table_(terminal::width(stdout), terminal::hasColours(stdout)) {}

  void begin(const polarline::Check& check) { say(table_.header(check)); }
  void pair(const polarline::PairCheck& pair, std::size_t count) {
    progress_.clear();
    say(table_.row(pair));
    if (++done_ < count) progress_.show(done_, count);
  }
  void end(const polarline::Check& check) {
    progress_.clear();
    if (check.verdict == polarline::Verdict::kFail && is_quiet_) return tell("{}", CheckTable::broken(check));
    if (check.verdict != polarline::Verdict::kError) return say(table_.conclusion(check));
    if (!is_quiet_ && !check.pairs.empty())
      say(table_.conclusion(check));
    else
      tellFailure(check);
  }
  void interrupted() {
    progress_.clear();
    tell("{}", kInterruptedWords);
  }

 private:
  static void tellFailure(const polarline::Check& check) {
    constexpr std::size_t kMostReasons = 5;
    std::size_t given_up = 0;
    for (const polarline::PairCheck& pair : check.pairs) {
      const bool is_told_below = &pair == polarline::endingPair(check);
      if (!pair.finished && !is_told_below && ++given_up <= kMostReasons)
        tell("pair {} given up: {}\n", pair.index, terminal::onOneLine(pair.reason.text));
    }
    if (given_up > kMostReasons) tell("... and {} more\n", given_up - kMostReasons);
    for (const polarline::Warning& each : check.warnings)
      tell("warning: {}\n  {}\n", terminal::onOneLine(each.text), each.advice);
    tell("polarline: {}\n{}{}", terminal::onOneLine(check.status.text), check.status.advice,
         check.status.advice.empty() ? "" : "\n");
  }
  void say(const std::string& text) const {
    if (!is_quiet_) deliver("-", text);
  }
  bool is_quiet_;
  PairProgress progress_;
  CheckTable table_;
  std::size_t done_ = 0;
};

/// The page of the check.
class ReportFile {
 public:
  explicit ReportFile(const std::string& path) {
    if (path.empty()) return;
    file_ = std::make_unique<whole_file::PartialFile>(path);  // A place that can't be written is told before the run.
    collected_ = std::make_unique<UnnamedFile>();
    document_ =
        std::make_unique<polarline::CheckDocument>([this](const std::string& piece) { collected_->append(piece); });
  }
  void add(const polarline::PairCheck& pair) {
    if (document_) document_->add(pair);
  }
  void finish(const polarline::Check& check) {
    if (!document_) return;
    document_->finish(check);
    std::vector<polarline::ReportDocument> documents(1);
    collected_->read([&](const std::string& piece) { documents[0].text += piece; });
    collected_.reset();
    polarline::ReportOptions options;
    options.command = givenWords();
    file_->append(polarline::reportPage(std::move(documents), options));
    file_->commit();
  }

 private:
  std::unique_ptr<UnnamedFile> collected_;  ///< The document, which would grow with every pair.
  std::unique_ptr<whole_file::PartialFile> file_;
  std::unique_ptr<polarline::CheckDocument> document_;
};

/// The document at its place: written while the check runs.
class DocumentFile {
 public:
  explicit DocumentFile(const std::string& path) {
    if (path.empty()) return;
    if (path != "-")
      file_ = std::make_unique<whole_file::PartialFile>(path);
    else
      collected_ = std::make_unique<UnnamedFile>();
    document_ = std::make_unique<polarline::CheckDocument>([this](const std::string& piece) { write(piece); });
  }
  bool isWanted() const { return document_ != nullptr; }
  void add(const polarline::PairCheck& pair) {
    if (document_) document_->add(pair);
  }
  void finish(const polarline::Check& check) {
    if (!document_) return;
    document_->finish(check);
    if (file_) return file_->commit();
    collected_->read([](const std::string& piece) { deliver("-", piece); });
  }

 private:
  void write(const std::string& piece) const {
    if (file_) return file_->append(piece);
    collected_->append(piece);
  }

  std::unique_ptr<UnnamedFile> collected_;  ///< Of standard output: nothing half goes there.
  std::unique_ptr<whole_file::PartialFile> file_;
  std::unique_ptr<polarline::CheckDocument> document_;
};

/// Of a set that can't be used what was named.
std::vector<std::string> inputsOf(const polarline::Set& set) {
  try {
    return polarline::filesOf(set);
  } catch (const polarline::InputError&) {
    return {set.polar, set.target, set.calibration, set.list, set.board, set.limits};
  }
}

int runCheck(Arguments& arguments) {
  requireSeparate({{"--json", arguments.result.json},
                   {"--write-corrected", arguments.options.write_corrected},
                   {"--report", arguments.report}},
                  inputsOf(arguments.set));
  if (arguments.report == "-") throw polarline::InputError("--report -", "a file was wanted");
  arguments.judging.takePairs();
  Speaker speaker(arguments.result);
  DocumentFile document(arguments.result.json);
  ReportFile report(arguments.report);
  polarline::CheckOptions& options = arguments.options;
  options.keep_points = false;
  endAtOwnLook();
  options.go_on = [] { return !interrupted(); };
  options.on_start = [&](const polarline::Check& check) { speaker.begin(check); };
  options.on_pair = [&](const polarline::PairCheck& pair, std::size_t count) {
    document.add(pair);
    report.add(pair);
    speaker.pair(pair, count);
  };
  const polarline::Check check = polarline::check(arguments.set, options);
  if (check.status.exit_code == kInterrupted) {
    speaker.interrupted();
    return kInterrupted;
  }
  const whole_file::Together together;
  document.finish(check);
  report.finish(check);
  speaker.end(check);
  return check.status.exit_code;
}

void addSetOptions(CLI::App& app, polarline::Set& set) {
  app.add_option("SET", set.folder, "Folder with polar.txt, target.ini, calib.json, list.txt, board_gt.txt, limits.txt")
      ->type_name("");
  app.add_option("--list", set.list, "Image list in place of the set's")->type_name("FILE");
  addFileOptions(app, set);
}

}  // namespace

Subcommand addCheck(CLI::App& polarline) {
  CLI::App* const app = polarline.add_subcommand("check", "Runs a set, prints its figures, ends with the verdict");
  const auto arguments = std::make_shared<Arguments>();
  addSetOptions(*app, arguments->set);
  addJudgingOptions(*app, arguments->judging);
  app->add_option("--out", arguments->options.out, "Folder for the library's own files; without it none is written")
      ->type_name("FOLDER");
  app->add_option("--report", arguments->report, "The page to look at: one file of HTML")->type_name("FILE");
  app->add_option("--write-corrected", arguments->options.write_corrected,
                  "The calibration with the causes of the row differences taken out (.json; .bin of a binary one); the "
                  "set is then run once more with it")
      ->type_name("FILE");
  addResultOptions(*app, arguments->result);
  addExample(*app, "polarline check my_set --limit 'dy_means<=0.1' --json result.json");
  return {app, [arguments] { return runCheck(*arguments); }};
}

}  // namespace command
