// What the meter makes of the libraries' operation counts.
#pragma once

#include <string>

struct ExperimentState;
struct TickArrays;

// Adds one attempt to the totals of the run, and forms the rate as soon as any time has passed.
void CountOperations(ExperimentState& state, const TickArrays& tick);

// The line that lists the operations per cell and step.
std::string OperationsText(const ExperimentState& state, const TickArrays& tick);

// Floating-point operations per cell and step.
int FlopsPerCell(const ExperimentState& state, const TickArrays& tick);
