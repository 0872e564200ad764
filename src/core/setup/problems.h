// Every problem that the panel can be given, built from a record alone: the same fields to the bit,
// but for the selected values and the axes before a run, which follow the panel's boxes.
#pragma once

#include "core/setup/set_up_boxes.h"
#include "core/setup/set_up_text.h"

struct ExperimentState;

// The program as it comes up: the default problem on NGridCells cells.
void SetUpDefaultProblem(ExperimentState& state, SetUpBoxes& boxes);

// Test 1 to 8, at any moment, with open ends. `number` counts from 1.
void SetUpTest(ExperimentState& state, SetUpBoxes& boxes, int number);

// The three waves and the background velocity of a sound wave.
struct SoundWaves {
    double RPlusAmp = 1.0;
    int RPlusFreq = 1;
    double RMinusAmp = 0.0;
    int RMinusFreq = 1;
    double R0Amp = 0.0;
    int R0Freq = 1;
    double U0 = -1.0;
};

// The waves that the record holds, and the other way round.
SoundWaves WavesOf(const ExperimentState& state);
void TakeWaves(ExperimentState& state, const SoundWaves& waves);

// Makes the waves the problem on the present grid, with periodic ends. False, and nothing is
// changed, after the run has begun, or where the waves would drive the pressure or the entropy
// function to 0.
bool SetUpSoundWave(ExperimentState& state, const SoundWaves& waves);

// Builds the waves of the record on the present grid; a grid on which they are not possible gets
// the quiet background. Clears the way for them first: only the two end points stay on the list.
void BuildSoundWave(ExperimentState& state);

// The problem of a set-up file. Densities and pressures are raised to their floors. Time stays.
void SetUpFromFile(ExperimentState& state, SetUpBoxes& boxes, SetUpValues values);

// Puts a text into the box of the number of cells. Another number rebuilds the whole problem, with
// the control points where they were; at least 6, at least NSelected, at most MaxGridCells cells.
void PutNGridCells(ExperimentState& state, SetUpBoxes& boxes, const std::string& text);

// Lays the problem of the list of control points on a fresh grid.
void BuildFromPoints(ExperimentState& state, SetUpBoxes& boxes);

// Takes off all points but the first and the last.
void ResetPoints(ExperimentState& state);

// The first half of a change of the number of cells: the edges of the new grid between the old
// ends, for the mapping of the control points; the rebuild that follows replaces them. `number` is
// what was asked for, at least 6.
void StretchGrid(ExperimentState& state, double number);

// The second half: forgets what is stored of the former grid and finds the control points' cells on
// the new one.
void CarryPointsOver(ExperimentState& state);
