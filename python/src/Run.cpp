#include <pybind11/stl.h>

#include <memory>
#include <optional>
#include <utility>

#include "polarline/check.h"
#include "python/src/CallBack.h"
#include "python/src/CheckArguments.h"
#include "python/src/PictureArgument.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::Check;
using polarline::CheckOptions;
using polarline::Set;

std::unique_ptr<Check> runCheck(const py::dict& files, const std::optional<py::sequence>& left,
                                const std::optional<py::sequence>& right, CheckOptions options,
                                const py::object& progress) {
  std::vector<PictureArgument> kept_left, kept_right;
  if (left) kept_left = pictureArguments(*left, "left");
  if (right) kept_right = pictureArguments(*right, "right");
  demandLikePairs(kept_left, kept_right);
  if (left || right) options.pictures = {pixelsOf(kept_left), pixelsOf(kept_right)};
  CallBack back(progress);
  options.on_pair = [&back, done = std::size_t{0}](const polarline::PairCheck&, std::size_t all) mutable {
    back.tell(++done, all);
  };
  options.go_on = [&back] { return back.goOn(); };
  const Set set = setOf(files);
  auto check = aside([&] { return std::make_unique<Check>(polarline::check(set, options)); });
  back.rethrow();
  return check;
}

}  // namespace

Set setOf(const py::dict& files) {
  const auto path = [&files](const char* name) {
    return files.contains(name) ? files[name].cast<std::string>() : std::string();
  };
  return {path("folder"), path("polar"), path("target"), path("calibration"),
          path("list"),   path("board"), path("limits"), path("rectified")};
}

void addRun(py::module_& module) {
  module.def(
      "run_check",
      [](const py::dict& files, const std::optional<py::sequence>& left, const std::optional<py::sequence>& right,
         const py::object& progress, std::vector<std::string> limits, std::vector<std::string> settings, bool refine,
         PairRange pairs, const std::string& out, const std::string& write_corrected, bool diagnose, bool uncertainty) {
        CheckOptions options;
        options.limits = std::move(limits);
        options.settings = std::move(settings);
        options.refine = refine;
        options.pairs = pairs;
        options.out = out;
        options.write_corrected = write_corrected;
        options.diagnose = diagnose;
        options.uncertainty = uncertainty;
        return runCheck(files, left, right, std::move(options), progress);
      },
      py::arg("files"), py::arg("left").none(true), py::arg("right").none(true), py::arg("progress").none(true),
      py::kw_only(), py::arg("limits"), py::arg("settings"), py::arg("refine"), py::arg("pairs").none(true),
      py::arg("out"), py::arg("write_corrected"), py::arg("diagnose"), py::arg("uncertainty"),
      "A check whatever came of it; `polarline.check` is made of it.");
  module.def("limit_names", &polarline::limitNames, "The names that a limit may judge.");
  module.def("setting_keys", &polarline::settingKeys, "The keys of the polar configuration that `settings` takes.");
  module.def("forget_turns", &forgetTurns, "For the child of a fork.");
  module.def(
      "picture_address",
      [](const py::object& picture) {
        return reinterpret_cast<std::uintptr_t>(PictureArgument(picture, "picture").pixels.data);
      },
      py::arg("picture"), "Where the library would read the pixels of a picture: the array's own place, or a copy's.");
}

}  // namespace binding
