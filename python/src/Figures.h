#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <vector>

#include "polarline/check.h"

namespace binding {

/// The figures of a pair as Python sees them: a mapping, and an attribute each.
struct Figures {
  pybind11::object owner;  ///< Keeps the figures alive.
  const std::vector<polarline::Figure>* all;
};

/// A read-only mapping of records by name, each by reference.
template <typename Record, typename NameOf>
pybind11::object mappingOf(const std::vector<Record>& records, NameOf nameOf, pybind11::handle owner) {
  pybind11::dict all;
  for (const Record& record : records)
    all[pybind11::cast(nameOf(record))] =
        pybind11::cast(&record, pybind11::return_value_policy::reference_internal, owner);
  return pybind11::module_::import("types").attr("MappingProxyType")(all);
}

/// How certain figures are, by their names.
pybind11::object uncertaintyOf(const std::vector<polarline::FigureUncertainty>& figures, pybind11::handle owner);

}  // namespace binding
