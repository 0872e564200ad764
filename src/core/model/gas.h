// What follows from the state of the gas in a cell.
#pragma once

struct ExperimentState;

// Density times sound speed of cell i, the impedance of an acoustic wave.
double AcousticImpedance(const ExperimentState& state, int i);

// Works out C2 and C of cell i.
void RefreshSoundSpeed(ExperimentState& state, int i);
