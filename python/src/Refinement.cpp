#include <pybind11/stl.h>

#include <utility>

#include "polarline/refine.h"
#include "python/src/Arrays.h"
#include "python/src/PictureArgument.h"
#include "python/src/Turn.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::RefinedDot;

/// The refined dots of a picture, whose members are told as arrays.
struct RefinedDots {
  std::vector<RefinedDot> dots;
};

py::tuple statesOf(const RefinedDots& self) {
  py::tuple names(self.dots.size());
  for (std::size_t k = 0; k < self.dots.size(); ++k) names[k] = polarline::nameOf(self.dots[k].state);
  return names;
}

}  // namespace

void addRefinement(py::module_& module) {
  py::class_<RefinedDots> dots(
      module, "RefinedDots",
      R"(Refined centres of one picture: read-only arrays of one entry a dot that share its memory.

A dot that could not be refined stands where it was detected, without a covariance.)");
  const auto column = [&dots](const char* name, auto member, const char* doc) {
    defColumn(dots, name, &RefinedDots::dots, member, doc);
  };
  column("id", &RefinedDot::id, "row * columns + column of the board, int32.");
  column("x", &RefinedDot::x, "Column of the image of the circle's centre, pixels, float64; pixel centres are whole.");
  column("y", &RefinedDot::y, "Its row.");
  column("xx", &RefinedDot::xx, "Variance of `x`, square pixels, float64; not a number where not refined.");
  column("xy", &RefinedDot::xy, "Covariance of `x` and `y`, square pixels.");
  column("yy", &RefinedDot::yy, "Variance of `y`, square pixels.");
  column("ellipse_x", &RefinedDot::ellipse_x, "Column of the centre of the imaged ellipse, pixels, float64.");
  column("ellipse_y", &RefinedDot::ellipse_y, "Its row.");
  column("edge_width", &RefinedDot::edge_width, "Standard deviation of the edge's blur, pixels, float64.");
  dots.def_property_readonly("state", &statesOf, "'refined', 'clipped', 'covered', 'overlapped' or 'unclear', a tuple.")
      .def("__len__", [](const RefinedDots& self) { return self.dots.size(); });
  module.def(
      "refine",
      [](const py::object& image, const polarline::Detection& detection, const std::string& target,
         const polarline::Camera& camera, int type) {
        const PictureArgument given(image, "image");
        return RefinedDots{aside([&] { return polarline::refine(given.pixels, detection, target, camera, type); })};
      },
      py::arg("image"), py::arg("detection"), py::arg("target"), py::arg("camera"), py::arg("type"),
      "Refined dots; `polarline.refine` is made of it.");
}

}  // namespace binding
