#include "polarline/report.h"

#include <pybind11/stl.h>

#include <string>
#include <utility>
#include <vector>

#include "polarline/check.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {

namespace py = pybind11;
using polarline::ReportDocument;

void addReport(py::module_& module) {
  module.def(
      "report_page",
      [](const std::vector<std::pair<std::string, std::string>>& documents, const std::string& title, bool paths,
         std::size_t budget, bool pictures) {
        std::vector<ReportDocument> all;
        all.reserve(documents.size());
        for (const auto& [text, path] : documents)
          all.push_back(text.empty() ? polarline::readReportDocument(path) : ReportDocument{text, path});
        polarline::ReportOptions options;
        options.title = title;
        options.paths = paths;
        options.budget = budget;
        options.pictures = pictures;
        return py::bytes(aside([&] { return polarline::reportPage(all, options); }));
      },
      py::arg("documents"), py::kw_only(), py::arg("title"), py::arg("paths"), py::arg("budget"), py::arg("pictures"),
      "The page of documents, each its text, or empty, and its path.");
}

}  // namespace binding
