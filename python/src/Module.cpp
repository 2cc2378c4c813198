#include "python/src/Errors.h"
#include "python/src/Types.h"

PYBIND11_MODULE(_polarline, module) {
  module.doc() = "The library as the package `polarline` calls it. For callers there is `polarline`.";
  binding::translateErrors();
  binding::addFigures(module);
  binding::addWarnings(module);
  binding::addCalibration(module);
  binding::addDiagnosis(module);
  binding::addPairs(module);
  binding::addCheck(module);
  binding::addRun(module);
  binding::addInit(module);
  binding::addReport(module);
  binding::addFleet(module);
  binding::addDetection(module);
  binding::addRefinement(module);
  binding::addBoard(module);
  binding::addSimulation(module);
  binding::addExplanations(module);
  binding::addExportRecords(module);
  binding::addExports(module);
}
