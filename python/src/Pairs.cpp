#include <pybind11/stl.h>

#include "polarline/check.h"
#include "python/src/Arrays.h"
#include "python/src/Figures.h"
#include "python/src/Text.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::DotState;
using polarline::PairCheck;
using polarline::PairPoints;
using polarline::PairQuality;
using polarline::PictureQuality;
using polarline::Reason;
using polarline::RefinedPair;
using polarline::RefinedPoints;

/// Dots of both pictures.
struct DotCounts {
  std::size_t left, right;
};
struct RefinedCounts : DotCounts {
  std::size_t left_out;
};

py::tuple namesOf(const std::vector<DotState>& states) {
  py::tuple names(states.size());
  for (std::size_t k = 0; k < states.size(); ++k) names[k] = polarline::nameOf(states[k]);
  return names;
}

void addPoints(py::module_& module) {
  py::class_<PairPoints> points(
      module, "Points",
      R"(The dots that both pictures of a pair show: read-only arrays of one entry a dot, by rising id.

They share memory with the check. What was not measured is not a number.)");
  defColumn(points, "id", &PairPoints::id, "row * columns + column of the board, int32.");
  defColumn(points, "left_x", &PairPoints::left_x,
            "Column in the left picture, pixels, float32; pixel centres are whole.");
  defColumn(points, "left_y", &PairPoints::left_y, "Row in the left picture, pixels, float32.");
  defColumn(points, "right_x", &PairPoints::right_x, "Column in the right picture, pixels, float32.");
  defColumn(points, "right_y", &PairPoints::right_y, "Row in the right picture, pixels, float32.");
  defColumn(points, "dy", &PairPoints::dy, "Row difference of the rectified pair, left less right, pixels, float32.");
  defColumn(points, "residual", &PairPoints::residual, "Of the triangulation, pixels of the right picture, float32.");
  defColumn(points, "x", &PairPoints::x, "Triangulated, left camera frame, board unit, float32.");
  defColumn(points, "y", &PairPoints::y, "As `x`.");
  defColumn(points, "z", &PairPoints::z, "As `x`: the distance along the axis of the left camera.");
  defColumn(points, "rectified_left_x", &PairPoints::rectified_left_x,
            "In the rectified left picture, pixels, float32.");
  defColumn(points, "rectified_left_y", &PairPoints::rectified_left_y, "As `rectified_left_x`.");
  defColumn(points, "rectified_right_x", &PairPoints::rectified_right_x,
            "In the rectified right picture, pixels, float32.");
  defColumn(points, "rectified_right_y", &PairPoints::rectified_right_y, "As `rectified_right_x`.");
  points.def("__len__", [](const PairPoints& self) { return self.id.size(); });

  py::class_<RefinedPoints, PairPoints> refined(module, "RefinedPoints",
                                                "The same from refined centres, with what is known of these.");
  defColumn(refined, "left_sd_x", &RefinedPoints::left_sd_x, "Standard deviation of a centre, pixels, float32.");
  defColumn(refined, "left_sd_y", &RefinedPoints::left_sd_y, "As `left_sd_x`.");
  defColumn(refined, "right_sd_x", &RefinedPoints::right_sd_x, "As `left_sd_x`.");
  defColumn(refined, "right_sd_y", &RefinedPoints::right_sd_y, "As `left_sd_x`.");
  refined.def_property_readonly(
      "left_state", [](const RefinedPoints& self) { return namesOf(self.left_state); },
      "What became of each dot: 'refined', 'clipped', 'covered', 'overlapped' or 'unclear'.");
  refined.def_property_readonly(
      "right_state", [](const RefinedPoints& self) { return namesOf(self.right_state); }, "As `left_state`.");
}

void addCounts(py::module_& module) {
  py::class_<DotCounts>(module, "DotCounts", "Dots of both pictures of a pair.")
      .def_readonly("left", &DotCounts::left, "Of the left picture.")
      .def_readonly("right", &DotCounts::right, "Of the right picture.");
  py::class_<RefinedCounts, DotCounts>(module, "RefinedCounts", "What became of the dots of a pair.")
      .def_readonly("left_out", &RefinedCounts::left_out, "Dots that something hides; they are not evaluated.");
}

void addReason(py::module_& module) {
  py::class_<Reason> reason(module, "Reason", "Why a pair was given up.");
  reason.def_readonly("code", &Reason::code, "A status of the library.");
  defText(reason, "text", &Reason::text, "In words.");
  reason.def_readonly("side", &Reason::side, "'left', 'right', or empty where it is both or neither.")
      .def_readonly("step", &Reason::step, "The evaluation or the step of the detection that failed.");
}

void addQuality(py::module_& module) {
  py::class_<PictureQuality>(module, "PictureQuality", "What one picture is like. What can't be told is not a number.")
      .def_readonly("dots", &PictureQuality::dots, "Around which it was measured.")
      .def_readonly("full_scale", &PictureQuality::full_scale, "Largest grey that its pixels can have.")
      .def_readonly("dot", &PictureQuality::dot, "Grey of the dots' middles.")
      .def_readonly("ground", &PictureQuality::ground, "Grey between the dots.")
      .def_readonly("contrast", &PictureQuality::contrast, "Their difference as a share of the full scale, 0 to 1.")
      .def_readonly("noise", &PictureQuality::noise, "Standard deviation of a pixel between the dots, greys.")
      .def_readonly("saturated", &PictureQuality::saturated, "Share of the pixels at the full scale, 0 to 1.")
      .def_readonly("dot_radius", &PictureQuality::dot_radius, "Of the plain dots, pixels.")
      .def_readonly("edge_width", &PictureQuality::edge_width, "Standard deviation of the blur across an edge, pixels.")
      .def_readonly("edge_width_along", &PictureQuality::edge_width_along, "In the direction in which it is widest.")
      .def_readonly("edge_width_across", &PictureQuality::edge_width_across, "At right angles to that.")
      .def_readonly("blur_direction", &PictureQuality::blur_direction, "Where it is widest: degrees from the rows.")
      .def_readonly("board_share", &PictureQuality::board_share, "Of the picture's area that the dots span, 0 to 1.");
  py::class_<PairQuality>(module, "Quality", "What both pictures of a pair are like.")
      .def_readonly("left", &PairQuality::left, "The left picture.")
      .def_readonly("right", &PairQuality::right, "The right picture.")
      .def_readonly("coverage", &PairQuality::coverage, "The smaller `board_share` of the two.");
}

/// The figures of a pair or of its refined record.
template <typename Record>
Figures figuresOf(const py::object& self) {
  return {self, &self.cast<const Record&>().figures};
}

template <typename Record>
py::object uncertainties(const py::object& self) {
  return uncertaintyOf(self.cast<const Record&>().uncertainty, self);
}

void addRefined(py::module_& module) {
  py::class_<RefinedPair> refined(module, "Refined", "A pair once more, from refined centres.");
  refined.def_readonly("problem", &RefinedPair::problem, "Why there are no figures; empty where there are.")
      .def_property_readonly("figures", &figuresOf<RefinedPair>, "The same figures as the pair's own.")
      .def_property_readonly("uncertainty", &uncertainties<RefinedPair>,
                             "Mapping from a figure's name to its `Uncertainty`.")
      .def_property_readonly(
          "dots",
          [](const RefinedPair& self) {
            return RefinedCounts{{self.refined_left, self.refined_right}, self.left_out};
          },
          "Dots whose centre could be refined, and those left out: `RefinedCounts`.")
      .def_readonly("points", &RefinedPair::points, "The dots, as `RefinedPoints`.");
}

py::tuple carriedBy(const PairCheck& pair) {
  py::list names;
  for (const polarline::Figure& figure : pair.figures) {
    if (figure.is_carried) names.append(figure.name);
  }
  return {names};
}

void addPair(py::module_& module) {
  py::class_<PairCheck> pair(module, "Pair", "What a run shows of one pair.");
  pair.def_readonly("index", &PairCheck::index, "Position in the list, from 0.");
  defText(pair, "left", &PairCheck::left, "Name of the left picture, as the list has it.");
  defText(pair, "right", &PairCheck::right, "Name of the right picture.");
  pair.def_readonly("finished", &PairCheck::finished, "Otherwise given up.")
      .def_property_readonly(
          "state", [](const PairCheck& self) { return self.finished ? "finished" : "given up"; },
          "'finished' or 'given up'.")
      .def_property_readonly(
          "reason",
          [](const py::object& self) {
            const auto& seen = self.cast<const PairCheck&>();
            return referenceTo(seen.finished ? nullptr : &seen.reason, self);
          },
          "Why it was given up; None for a finished pair.")
      .def_property_readonly("figures", &figuresOf<PairCheck>, "`Figures` of the pair.")
      .def_property_readonly("carried", &carriedBy, "Names of figures that the library's record repeats.")
      .def_property_readonly("uncertainty", &uncertainties<PairCheck>,
                             "Mapping from a figure's name to its `Uncertainty`.")
      .def_property_readonly(
          "found",
          [](const PairCheck& self) {
            return DotCounts{self.found_left, self.found_right};
          },
          "Numbered dots of each picture.")
      .def_readonly("points", &PairCheck::points, "The dots that both pictures show.")
      .def_property_readonly(
          "quality",
          [](const py::object& self) {
            const auto& quality = self.cast<const PairCheck&>().quality;
            return referenceTo(quality ? &*quality : nullptr, self);
          },
          "`Quality` of the pictures; None where they could not be looked at.")
      .def_property_readonly(
          "refined",
          [](const py::object& self) {
            const auto& refined = self.cast<const PairCheck&>().refined;
            return referenceTo(refined ? &*refined : nullptr, self);
          },
          "The `Refined` pair; None unless the check refines.");
}

}  // namespace

void addPairs(py::module_& module) {
  addPoints(module);
  addCounts(module);
  addReason(module);
  addQuality(module);
  addRefined(module);
  addPair(module);
}

}  // namespace binding
