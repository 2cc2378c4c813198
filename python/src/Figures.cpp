#include "python/src/Figures.h"

#include <algorithm>

#include "python/src/Arrays.h"
#include "python/src/FigureText.h"
#include "python/src/Types.h"

namespace binding {
namespace {

namespace py = pybind11;
using polarline::Figure;

const Figure* find(const Figures& figures, const std::string& name) {
  const auto found = std::ranges::find_if(*figures.all, [&](const Figure& figure) { return figure.name == name; });
  return found == figures.all->end() ? nullptr : &*found;
}

const Figure& require(const Figures& figures, const std::string& name) {
  const Figure* const figure = find(figures, name);
  if (figure == nullptr) throw py::key_error(name);
  return *figure;
}

py::object valueOf(const Figure& figure, py::handle owner) {
  if (figure.is_list)
    return figure.values.empty() && !figure.is_own ? py::none() : py::object(viewOf(figure.values, owner));
  return figure.values.empty() ? py::none() : py::object(py::float_(figure.values[0]));
}

py::list namesOf(const Figures& figures) {
  py::list names;
  for (const Figure& figure : *figures.all) names.append(figure.name);
  return names;
}

/// The figures that a record has, whatever the run measured.
bool isOfRecord(const std::string& name) {
  return name.find('.') == std::string::npos && name != "pairs" && name != "finished" && name != "given_up";
}

void addFigure(py::module_& module) {
  py::class_<Figure>(module, "Figure", "A figure of one pair with what it means.")
      .def_property_readonly(
          "name", [](const Figure& self) { return self.name; }, "As the result record has it.")
      .def_property_readonly(
          "unit", [](const Figure& self) { return self.unit; }, "'pixels', 'board unit', 'degrees' or '1'.")
      .def_property_readonly(
          "meaning", [](const Figure& self) { return self.meaning; }, "In words.")
      .def_property_readonly(
          "value", [](const py::object& self) { return valueOf(self.cast<const Figure&>(), self); },
          "A float, a list's values as an array of float64, or None where the pair did not measure it itself.")
      .def_readonly("is_list", &Figure::is_list, "Whether the value is an array.")
      .def_readonly("is_own", &Figure::is_own, "Whether the pair measured it.")
      .def_readonly("is_carried", &Figure::is_carried, "Whether the library's record repeats an earlier pair's value.")
      .def_readonly("exceeds", &Figure::exceeds, "Whether it does not keep a limit that judges it.");
}

void addUncertainty(py::module_& module) {
  using polarline::FigureUncertainty;
  py::class_<FigureUncertainty>(
      module, "Uncertainty", "How a figure of one pair would scatter if the same scene were pictured again and again.")
      .def_readonly("name", &FigureUncertainty::name, "Of the figure.")
      .def_readonly("sd", &FigureUncertainty::sd, "Standard error, in the figure's unit.")
      .def_readonly("low95", &FigureUncertainty::low95, "Lower end of the interval that holds 95 of 100.")
      .def_readonly("high95", &FigureUncertainty::high95, "Its upper end.");
}

}  // namespace

py::object uncertaintyOf(const std::vector<polarline::FigureUncertainty>& figures, py::handle owner) {
  return mappingOf(
      figures, [](const auto& each) { return each.name; }, owner);
}

void addFigures(py::module_& module) {
  addFigure(module);
  addUncertainty(module);
  py::class_<Figures> figures(module, "Figures",
                              R"(The figures of a pair: a mapping from name to value, and an attribute each.

A value is a float, or an array of float64 for lists; None where the pair did not measure the figure itself.
`info` says what each means, as `polarline.explain` does.)");
  figures.def("__getitem__",
              [](const Figures& self, const std::string& name) { return valueOf(require(self, name), self.owner); });
  figures.def("__len__", [](const Figures& self) { return self.all->size(); });
  figures.def("__iter__", [](const Figures& self) { return namesOf(self).attr("__iter__")(); });
  figures.def("__contains__", [](const Figures& self, const py::object& name) {
    return py::isinstance<py::str>(name) && find(self, name.cast<std::string>()) != nullptr;
  });
  figures.def("keys", &namesOf, "The names, in the order of the record.");
  figures.def(
      "info",
      [](const Figures& self, const std::string& name) { return referenceTo(&require(self, name), self.owner); },
      py::arg("name"), "The figure with its unit and meaning. Raises `KeyError` for a name that is none.");
  for (const std::string& name : polarline::limitNames()) {
    if (!isOfRecord(name)) continue;
    const auto value = [name](const Figures& self) { return valueOf(require(self, name), self.owner); };
    figures.def_property_readonly(name.c_str(), value, figureText(name).c_str());
  }
}

}  // namespace binding
