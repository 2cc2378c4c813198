#include <pybind11/stl.h>

#include <utility>

#include "polarline/batch.h"
#include "polarline/report.h"
#include "polarline/store.h"
#include "python/src/Arrays.h"
#include "python/src/CallBack.h"
#include "python/src/CheckArguments.h"
#include "python/src/Text.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::BatchOptions;
using polarline::BatchOutcome;
using polarline::BatchResult;
using polarline::BatchSet;
using polarline::MergeResult;
using polarline::UnreadableDocument;

/// A member of what is told of a set, as its line has it.
py::object inLine(const BatchResult& result, const char* key) {
  return py::module_::import("json").attr("loads")(polarline::batchLine(result))[key];
}

void addBatchResult(py::module_& module) {
  py::class_<BatchResult> result(module, "BatchResult", "What became of a set of a batch.");
  defText(result, "set", &BatchResult::set, "Its folder, as it was named.");
  result
      .def_property_readonly(
          "state", [](const BatchResult& self) { return inLine(self, "state"); },
          "'judged', 'there' (its document was), 'duplicate' of one before it, or 'not written'.")
      .def_property_readonly(
          "verdict", [](const BatchResult& self) { return inLine(self, "verdict"); }, "'pass', 'fail' or 'error'.")
      .def_readonly("exit_code", &BatchResult::exit_code,
                    "0: every limit holds; 1: one is exceeded; 2: the set can't be used; 3: it ended without a figure; "
                    "4: it was not written.")
      .def_readonly("retry", &BatchResult::retry, "It may succeed when tried again.")
      .def_readonly("id", &BatchResult::id, "SHA-256 of the set; empty where its files could not be read.");
  defText(result, "document", &BatchResult::document, "Path of its document.");
  result.def_readonly("seconds", &BatchResult::seconds, "That judging it took.");
  defText(result, "text", &BatchResult::text, "What went wrong; empty otherwise.");
  result.def("to_json", &polarline::batchLine, "One line of JSON, schema 'polarline-batch/1'.");
}

void addBatchOutcome(py::module_& module) {
  py::class_<BatchOutcome>(module, "BatchOutcome", "What a batch came to.")
      .def_readonly("sets", &BatchOutcome::sets, "Those that something became of.")
      .def_readonly("judged", &BatchOutcome::judged, "Now.")
      .def_readonly("there", &BatchOutcome::there, "Before, duplicates among them.")
      .def_readonly("failed", &BatchOutcome::failed, "Without a verdict, now.")
      .def_readonly("exit_code", &BatchOutcome::exit_code, "The greatest of the sets'; 130: ended before the end.")
      .def("to_json", &polarline::batchJson, "One JSON object, schema 'polarline-batch-outcome/1'.")
      .def("__str__", &polarline::batchText);
}

void addMergeResult(py::module_& module) {
  py::class_<UnreadableDocument> unreadable(module, "UnreadableDocument", "A file of a store that was left out.");
  defText(unreadable, "path", &UnreadableDocument::path, "Of the file.");
  defText(unreadable, "reason", &UnreadableDocument::reason, "Why, in words.");
  py::class_<MergeResult> merged(module, "MergeResult", "What a merge did.");
  merged.def_readonly("documents", &MergeResult::documents, "That lie in the stores, readable or not.")
      .def_readonly("added", &MergeResult::added, "Sets that are new in the results.")
      .def_readonly("replaced", &MergeResult::replaced, "Sets that were judged anew since.")
      .def_readonly("renewed", &MergeResult::renewed, "Sets of which only the metadata changed.")
      .def_readonly("elsewhere", &MergeResult::elsewhere, "Documents of sets that another store has a later one of.")
      .def_readonly("unchanged", &MergeResult::unchanged, "Documents that the results had.")
      .def_readonly("sets", &MergeResult::sets, "That the results have in all.")
      .def("to_json", &polarline::mergeJson, "One JSON object, schema 'polarline-merge/1'.")
      .def("__str__", &polarline::mergeText);
  defTuple(merged, "unreadable", &MergeResult::unreadable, "An `UnreadableDocument` each, a tuple.");
}

std::vector<BatchSet> setsOf(const std::string& list, const std::string& name, const std::string& shard) {
  const std::vector<BatchSet> sets =
      list.empty() ? polarline::readBatchList(name) : polarline::parseBatchList(list, name);
  return shard.empty() ? sets : polarline::setsOf(sets, polarline::parseShard(shard));
}

BatchOutcome batched(const std::vector<BatchSet>& sets, BatchOptions& options, const py::object& on_set) {
  CallBack back(on_set);
  options.on_set = [&back](const BatchResult& result, std::size_t done, std::size_t all) {
    back.tell([&](const py::object& call) { call(result, done, all); });
  };
  options.go_on = options.go_on_with_next = [&back] { return back.goOn(); };
  const BatchOutcome outcome = aside([&] { return polarline::batch(sets, options); });
  back.rethrow();
  return outcome;
}

void addPages(py::module_& module) {
  module.def("is_results_file", &polarline::isResultsFile, py::arg("path"), "Whether a file is what `merge` writes.");
  module.def(
      "fleet_page",
      [](const std::string& results, const std::string& title) {
        return py::bytes(aside([&] {
          const std::string data = polarline::fleetData(results, {title, "", ""});
          return polarline::fleetPage({data, results}, title);
        }));
      },
      py::arg("results"), py::kw_only(), py::arg("title"), "The page of a fleet; `polarline.report` is made of it.");
}

}  // namespace

void addFleet(py::module_& module) {
  addBatchResult(module);
  addBatchOutcome(module);
  addMergeResult(module);
  addPages(module);
  module.def(
      "batch",
      [](const std::string& list, const std::string& name, const std::string& shard, const std::string& store,
         const py::dict& files, std::vector<std::string> limits, std::vector<std::string> settings, bool refine,
         PairRange pairs, bool existing, bool again, std::size_t stop_after, double claim_timeout,
         const py::object& on_set) {
        BatchOptions options;
        options.store = store;
        options.files = setOf(files);
        options.check.limits = std::move(limits);
        options.check.settings = std::move(settings);
        options.check.refine = refine;
        options.check.pairs = pairs;
        options.existing = existing;
        options.again = again;
        options.stop_after = stop_after;
        options.claim_timeout = claim_timeout;
        return batched(setsOf(list, name, shard), options, on_set);
      },
      py::arg("list"), py::arg("name"), py::kw_only(), py::arg("shard"), py::arg("store"), py::arg("files"),
      py::arg("limits"), py::arg("settings"), py::arg("refine"), py::arg("pairs").none(true), py::arg("existing"),
      py::arg("again"), py::arg("stop_after"), py::arg("claim_timeout"), py::arg("on_set").none(true),
      "Judges sets; `polarline.batch` is made of it. Without the text of a list it is read from its name.");
  module.def("make_store", &polarline::makeStore, py::arg("folder"), "Makes a store.");
  module.def(
      "merge",
      [](const std::vector<std::string>& stores, const std::string& results, const py::object& progress) {
        const Turn turn;
        return told(progress, [&](const auto& tell) { return polarline::merge(stores, results, {tell}); });
      },
      py::arg("stores"), py::arg("results"), py::kw_only(), py::arg("progress").none(true),
      "Merges stores; `polarline.merge` is made of it.");
}

}  // namespace binding
