#include "guide/experiment.h"

#include <stdexcept>

#include "core/run/first_step.h"
#include "core/run/run.h"
#include "loading/scheme_loader.h"

Experiment::Experiment() {
    SetUpDefaultProblem(State, Boxes);
}

void Experiment::ChooseConstants(double difcon, double shkjmp, double wavhaf) {
    State.difcon = difcon;
    State.shkjmp = shkjmp;
    State.wavhaf = wavhaf;
}

void Experiment::SetUp(int test) {
    if (test == 4) {
        PutPeriods(State, Boxes, "0.01");
        SetPlotsPerPeriod(State, 40000);
    }
    SetUpTest(State, Boxes, test);
}

void Experiment::TakeCells(int cells) {
    PutNGridCells(State, Boxes, std::to_string(cells));
}

TickArrays Experiment::Begin() {
    BeginRun(State);
    return {State, LoadSchemeLibrary(State.SchemeName)};
}

void Experiment::RunWhole() {
    TickArrays tick = Begin();
    if (!RunToEnd(State, tick)) throw std::runtime_error("a run did not end");
}
