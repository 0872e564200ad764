// The problems that the schemes are measured on, built by core as the program builds them.
#pragma once

#include <cstddef>
#include <string>

#include "core/analysis/cell_averages.h"
#include "core/analysis/exact_solution.h"
#include "core/model/experiment_state.h"

// Two states with a jump at `jump` between open ends at 0 and 1, laid as the tests are.
ExperimentState TubeProblem(const GasState& left, const GasState& right, double jump,
                            double stopTime, int cells);

// Before its run, with the defaults of the program: Test 1 to 8, the two interacting blast waves.
ExperimentState TestProblem(int number, int cells);
ExperimentState BlastProblem(int cells);
double StopTimeOfTest(int number);
constexpr double BlastStopTime = 0.038;

// Of the present state, which needs an exact solution.
ExactFields ExactFieldsNow(const ExperimentState& state);

// The reference solution of the blast waves at BlastStopTime, from a file of 400 cells with columns
// x, rho, p, u, averaged to the grid; cells must divide 400. Throws std::runtime_error.
ExactFields BlastReference(const std::string& file, int cells);

// A wave of R+ alone, one wavelength in the domain, and the sound-wave problem of the program with
// the exact averages of that wave as its fields: the set-up's own errors are of second order and
// would hide those of a scheme.
SimpleWave SoundWave(double amplitude, double velocity);
ExperimentState SoundWaveProblem(const SimpleWave& wave, int cells);
ExactFields AveragesOf(const SimpleWave& wave, const ExperimentState& state, double time);

// An experiment on cells 1..N with nothing in them: arrays, edges from 0 to 1, open ends.
ExperimentState EmptyExperiment(int cells);
