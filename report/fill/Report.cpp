#include "polarline/report.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <utility>

#include "platform/Files.h"
#include "polarline/errors.h"
#include "report/fill/Escape.h"
#include "report/fill/FillMarks.h"
#include "report/fill/PageTemplate.h"
#include "report/fill/StaticPart.h"
#include "report/measure/Crop.h"
#include "report/picture/SetBoard.h"
#include "report/picture/SetCameras.h"
#include "report/picture/SetPictures.h"
#include "report/read/ShortPaths.h"
#include "report/view/PageText.h"
#include "report/words/CheckRecord.h"
#include "report/words/CommandLine.h"
#include "report/words/ComparisonWords.h"

namespace polarline {
namespace {

std::string now() {
  const auto time = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  return fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(time));
}

/// A hand-made document may have a whole path for a name.
std::string nameOf(const ReadCheck& check, bool has_paths) {
  const auto name = check.json["set"]["name"].get<std::string>();
  return !has_paths && isAbsolute(name) ? fileName(name) : name;
}

/// The set's name, else the document's; another than those before.
std::string titleOf(const ReadCheck& check, const std::vector<CheckView>& before, bool has_paths) {
  std::string name = nameOf(check, has_paths);
  if (name.empty()) name = fileName(check.path);
  if (name.empty()) name = "check";
  // Before and after with one thing changed are told by what it is.
  const auto same = std::ranges::find(before, name, &CheckView::title);
  if (same != before.end()) {
    const std::vector<std::string> changed = changedInputs(same->record, checkRecord(check.json));
    if (changed.size() == 1) name += ", other " + changed.front();
  }
  std::string title = name;
  for (int number = 2; std::ranges::count(before, title, &CheckView::title) > 0; ++number)
    title = fmt::format("{} ({})", name, number);
  return title;
}

std::string pageTitle(const std::vector<CheckView>& views, const std::string& wanted) {
  if (!wanted.empty()) return wanted;
  if (views.size() == 1) return views[0].title + ": " + views[0].headline.substr(0, views[0].headline.find(':'));
  std::string title;
  for (const CheckView& view : views) title += (title.empty() ? "" : ", ") + view.title;
  return title;
}

void requireCount(std::size_t documents) {
  if (documents > 0 && documents <= kMostReportedChecks) return;
  throw InputError(fmt::format("{} documents were named; 1 to {} were wanted", documents, kMostReportedChecks));
}

/// Takes the checks of a page, one behind the other.
class PageMaker {
 public:
  PageMaker(std::size_t count, const ReportOptions& options) : options_(options), count_(count) { requireCount(count); }

  void add(ReadCheck check) {
    const auto cameras = setCameras(check.json, check.path);
    const SetPictures files(check.json, check.path, partLookedAt(check.json), cameras);
    const auto pictures = [&](std::size_t place) { return options_.pictures ? files.of(place) : PairPictures(); };
    const CheckSources sources{pictures, boardOf(check.json, check.path), cameras};
    const ViewOptions shown{titleOf(check, views_, options_.paths), options_.paths, options_.budget / count_,
                            pathsOfCommand(options_.command)};
    views_.push_back(viewCheck(std::move(check), sources, shown));
    const std::string lost = options_.pictures && options_.tell ? files.lost() : "";
    if (!lost.empty()) options_.tell(fmt::format("{}: {}; the page goes without them", views_.back().title, lost));
  }

  std::string take() {
    const std::string title = htmlOf(pageTitle(views_, options_.title));
    const std::string words = staticPart(views_);
    const std::string made = options_.made.empty() ? now() : options_.made;
    std::string data = pageText(std::move(views_), made, commandLine(options_.command, options_.paths));
    data = scriptJson(data);  // Not within the call below: the text before would stay until its end.
    return filledMarks(
        pageTemplate(),
        {{{"@POLARLINE_TITLE@", title}, {"@POLARLINE_STATIC@", words}, {"@POLARLINE_DATA@", std::move(data)}}});
  }

 private:
  const ReportOptions& options_;
  std::size_t count_;
  std::vector<CheckView> views_;
};

}  // namespace

std::string reportPage(const std::vector<ReportDocument>& documents, const ReportOptions& options) {
  PageMaker page(documents.size(), options);
  for (const ReportDocument& document : documents) page.add(readCheck(document));
  return page.take();
}

std::string reportPage(std::vector<ReportDocument>&& documents, const ReportOptions& options) {
  PageMaker page(documents.size(), options);
  for (ReportDocument& document : documents) {
    ReadCheck check = readCheck(document);
    std::string().swap(document.text);  // Of many pairs it is longer than all that the page keeps of it.
    page.add(std::move(check));
  }
  return page.take();
}

}  // namespace polarline
