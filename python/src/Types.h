#pragma once

#include <pybind11/pybind11.h>

/// What each file puts into the module; a type comes before those that refer to it.
namespace binding {

void addFigures(pybind11::module_& module);
void addWarnings(pybind11::module_& module);
void addCalibration(pybind11::module_& module);
void addDiagnosis(pybind11::module_& module);
void addPairs(pybind11::module_& module);
void addCheck(pybind11::module_& module);
void addRun(pybind11::module_& module);
void addInit(pybind11::module_& module);
void addFleet(pybind11::module_& module);
void addDetection(pybind11::module_& module);
void addRefinement(pybind11::module_& module);
void addBoard(pybind11::module_& module);
void addSimulation(pybind11::module_& module);
void addExplanations(pybind11::module_& module);
void addReport(pybind11::module_& module);
void addExportRecords(pybind11::module_& module);
void addExports(pybind11::module_& module);

}  // namespace binding
