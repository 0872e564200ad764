// An experiment of the guide, set up and run without a window.
#pragma once

#include <string>

#include "core/model/experiment_state.h"
#include "core/run/tick_arrays.h"
#include "core/setup/problems.h"

struct Experiment {
    Experiment();  // as the program comes up

    void ChooseScheme(const std::string& name) { State.SchemeName = name; }
    void ChooseConstants(double difcon, double shkjmp, double wavhaf);
    void SetUp(int test);  // after closer pictures for the cold gas of Test 4
    void TakeCells(int cells);

    TickArrays Begin();
    void RunWhole();  // throws std::runtime_error if the run does not come to its end

    ExperimentState State;
    SetUpBoxes Boxes;
};
