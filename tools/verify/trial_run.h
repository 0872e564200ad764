// Runs of a scheme under the instrument's step control, and what is measured on them.
#pragma once

#include "verify/loaded_scheme.h"
#include "verify/trial_problems.h"

struct RunSettings {
    Boundary Ends = Boundary::Continuation;
    double TStop = 1.0;
    double CourantTarget = 0.85;
    double FirstCourant = 0.085;  // of the first step, by the largest signal speed at the start
    double LargestStep = 1e300;
    int StripWidth = 0;  // 0: the instrument's own
    SchemeConstants Constants = {};
};

struct RunReport {
    int Steps = 0;
    int Rejected = 0;
    int Floored = 0;  // cells that a floor had to lift
    bool Finite = true;
    double LowestRho = 1e300;
    double LowestP = 1e300;
};

// Advances the flow to exactly TStop: the Courant gate at 1, growth by 2.5 per cent below nine
// tenths of the target, floors. Gives up after a million attempts.
RunReport RunTrial(const LoadedScheme& scheme, const RunSettings& settings, Flow& flow);

RunSettings ShockTubeSettings(const ShockTube& tube);
RunSettings BlastSettings();
RunSettings SoundWaveSettings();

struct Errors {
    double Rho;
    double P;
    double Ux;
    double Uy;
    double Overshoot;  // of density, past the range of the exact solution
};
// Mean absolute differences over the cells.
Errors Compare(const Flow& flow, const Flow& exact);
