#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "polarline/api.h"

/// The page that people look at: one file of HTML made of the documents of one check, or of two to eight side by side.
/// It opens from disk without a network.
namespace polarline {

/// The document of a check (schema "polarline-check/1"), as `toJson` and `polarline check --json` write it.
struct ReportDocument {
  std::string text;
  /// The file that it comes from: failures are told of it, and pictures that the document names are looked for beside
  /// it, too. Empty for a document that was never a file.
  std::string path;
};

/// How a page is made. It is the same for the same documents, pictures and options.
struct ReportOptions {
  std::string title;   ///< Of the page; empty: the names of the sets and the verdict.
  bool paths = false;  ///< Otherwise files are told by their names, without folders.
  /// Bytes of the page's data, about. What every table needs is always in it; of the dots and pictures as much as fits:
  /// those of the worst pairs, and of others evenly over the list. Several checks share it in equal parts; the dots of
  /// the worst pair of each come before its tables. The page says what was left out.
  std::size_t budget = 10'000'000;
  bool pictures = true;  ///< Otherwise the page has no picture of the cameras.
  /// The words of the command that asks for the page, which it tells; empty: it tells none.
  std::vector<std::string> command;
  std::string made;  ///< When the page is made: UTC, ISO 8601; empty: now.
  /// Hears, once a check, which pictures the page goes without because they are not where they were, or have changed.
  std::function<void(const std::string& text)> tell;
};

/// Checks that fit on one page.
inline constexpr std::size_t kMostReportedChecks = 8;

/// Reads the document at a path. Throws `InputError` for a path that is no readable file.
POLARLINE_API ReportDocument readReportDocument(const std::string& path);

/// The page of the checks, in their order; the first is what the others are compared with. Pictures are taken from
/// where the documents name them, or from beside the documents, and only such whose content has the hash that the
/// document tells; without them the page goes without. Of a pair given up the picture of the side that failed is
/// searched once more. Throws `InputError` (file, key, what was found and wanted) for no document, more than
/// `kMostReportedChecks`, and one that is no JSON or not of the schema.
POLARLINE_API std::string reportPage(const std::vector<ReportDocument>& documents, const ReportOptions& options = {});

/// The same of documents that nobody needs afterwards: the text of each is let go as soon as it has been read, so that
/// the page of many pairs needs less memory.
POLARLINE_API std::string reportPage(std::vector<ReportDocument>&& documents, const ReportOptions& options = {});

/// Whether a document is the data of a fleet's page (schema "polarline-fleet/1") rather than that of a check.
POLARLINE_API bool isFleetDocument(const ReportDocument& document);

/// The page of many checks: yield, figures against their limits, drift, causes that recur, the worst sets. `data` is
/// the object "polarline-fleet/1" (docs/schema/polarline-fleet-1.schema.json), counts and sums of the sets of a store.
/// The page works out of them what a filter by metadata leaves; without JavaScript yields, means and the worst sets
/// stand. It is the same for the same arguments. Throws `InputError` (key, what was found and wanted) for data that is
/// no JSON or not of the schema.
/// @param title        Empty: the store's name and the yield.
/// @param without_page Documents of the worst sets (`worst[].document`) whose pages could not be made: not linked to.
POLARLINE_API std::string fleetPage(const ReportDocument& data, const std::string& title = {},
                                    const std::vector<std::string>& without_page = {});

/// How a page leads to a folder: a relative URL, percent-encoded, "." for its own folder. Nothing of the folders that
/// both lie in is in it.
/// @param page   Path of the page, "-" for standard output, which counts as the current folder.
/// @param folder Path of the folder.
POLARLINE_API std::string urlFromPage(const std::string& page, const std::string& folder);

/// What making a page came to.
struct ReportResult {
  std::string page;                       ///< Its path; "-": standard output.
  std::size_t bytes = 0;                  ///< Of it.
  std::vector<std::string> worst;         ///< Of a fleet: paths of the pages of its worst sets that were made.
  std::vector<std::string> without_page;  ///< Documents of those that have none, as they can't be read.
  std::vector<std::string> warnings;      ///< What the pages go without.
};

/// The same as JSON, schema "polarline-report/1".
POLARLINE_API std::string reportJson(const ReportResult& result);

}  // namespace polarline
