#pragma once

#include <string>

#include "bench/Contest.h"
#include "bench/Report.h"

/// How a group of rows is measured.
struct Plan {
  Effort effort;
  bool quick = false;
  std::string only;  ///< Of the boards those whose names hold this.
};

/// One function for each group of rows. Each renders its own pictures before it measures.
void detectRows(const Plan& plan, Table& table);
void otherRows(const Plan& plan, Table& table);
void evaluateRows(const Plan& plan, Table& table);
void rectifyRows(const Plan& plan, Table& table);
void runRows(const Plan& plan, Table& table);
/// From the rows of detection that the table has.
void growthRows(const Plan& plan, Table& table);
void memoryRows(const Plan& plan, Table& table);
