// The life of a run without a window.
#include "core/run/run.h"

#include <gtest/gtest.h>

#include <thread>

#include "core/analysis/conserved_sums.h"
#include "core/model/experiment_state.h"
#include "core/picture/caption_text.h"
#include "core/run/first_step.h"
#include "core/run/state_store.h"
#include "core/run/tick_arrays.h"
#include "core/setup/problems.h"
#include "loading/scheme_loader.h"

namespace {

// Test 1 on a coarse grid, as the program comes up.
ExperimentState CoarseTube(int cells = 60) {
    ExperimentState state;
    SetUpBoxes boxes;
    SetUpDefaultProblem(state, boxes);
    PutNGridCells(state, boxes, std::to_string(cells));
    SetUpTest(state, boxes, 1);
    return state;
}

bool RunWhole(ExperimentState& state, const StepObserver* observer = nullptr,
              StepCounts* counts = nullptr) {
    if (!BeginRun(state)) return false;
    TickArrays tick(state, LoadSchemeLibrary(state.SchemeName));
    tick.Observer = observer;
    const bool isOver = RunToEnd(state, tick);
    if (counts != nullptr) *counts = tick.Counts;
    return isOver;
}

std::vector<double> Cells(const OffsetArray<double>& field, int n) {
    return {field.At(1), field.At(n) + 1};
}

}  // namespace

// No plot interval has been set yet: nothing may bound the first step to 0.
TEST(Run, AFirstTestOnAFreshRecordRunsToItsEnd) {
    for (int test = 1; test <= 8; ++test) {
        ExperimentState state;
        state.NGridCells = 50;
        SetUpBoxes boxes;
        SetUpTest(state, boxes, test);
        ASSERT_GT(state.DTime, 0.0);
        EXPECT_TRUE(RunWhole(state)) << "test " << test;
        EXPECT_GE(state.Time, state.TStop);
    }
}

TEST(Run, ACopyRunsByItselfOnAnotherThread) {
    ExperimentState first = CoarseTube();
    ASSERT_TRUE(BeginRun(first));
    TickArrays tick(first, LoadSchemeLibrary(first.SchemeName));
    for (int k = 0; k < 5; ++k) AdvanceRun(first, tick);
    ExperimentState second = first;
    bool secondIsOver = false;
    std::thread worker([&] {
        TickArrays own(second, LoadSchemeLibrary(second.SchemeName));
        secondIsOver = RunToEnd(second, own);
    });
    const bool firstIsOver = RunToEnd(first, tick);
    worker.join();
    EXPECT_TRUE(firstIsOver && secondIsOver);
    EXPECT_EQ(first.NStored, second.NStored);
    EXPECT_EQ(first.Time, second.Time);
    EXPECT_EQ(Cells(first.Rho, 60), Cells(second.Rho, 60));
    EXPECT_EQ(Cells(first.FSmoke, 60), Cells(second.FSmoke, 60));
}

TEST(Run, AnObserverSeesEveryStepAndChangesNoBit) {
    ExperimentState plain = CoarseTube();
    ExperimentState watched = plain;
    int accepted = 0;
    double time = 0.0;
    StepObserver observer;
    observer.Accepts = [&](const ExperimentState& before, const TickArrays& step) {
        EXPECT_EQ(before.Time, time);
        EXPECT_GT(step.RhoOut[1], 0.0);
        time += step.StepDT;
        ++accepted;
    };
    StepCounts counts;
    ASSERT_TRUE(RunWhole(plain));
    ASSERT_TRUE(RunWhole(watched, &observer, &counts));
    EXPECT_EQ(accepted, counts.Steps);
    EXPECT_EQ(time, watched.Time);
    EXPECT_EQ(counts.Floored, 0);
    EXPECT_EQ(Cells(plain.P, 60), Cells(watched.P, 60));
}

// A scheme that leaves everything as it is but the first cell of each strip, whose pressure it
// loses.
void LosesAPressure(const double*, const double* rho, const double* p, const double* ux,
                    const double* uy, const double*, const double* smoke, double* rhoOut,
                    double* pOut, double* uxOut, double* uyOut, double*, double* smokeOut,
                    const double*, double* courant, const double*, const double*, const double*,
                    const double*, const double*, const double*, const double*, const double*,
                    const int* width, const int* boundary, int*) {
    for (int x = *boundary; x < *boundary + *width; ++x) {
        rhoOut[x] = rho[x];
        pOut[x] = x == *boundary ? -1.0 : p[x];
        uxOut[x] = ux[x];
        uyOut[x] = uy[x];
        smokeOut[x] = smoke[x];
    }
    *courant = 0.5;
}

TEST(Run, CellsLiftedToAFloorAreCountedForAnObserver) {
    for (const bool isObserved : {false, true}) {
        ExperimentState state = CoarseTube(150);  // two strips
        ASSERT_TRUE(BeginRun(state));
        SchemeLibrary scheme;
        scheme.Kestrel64 = LosesAPressure;
        TickArrays tick(state, scheme);
        const StepObserver observer;
        tick.Observer = isObserved ? &observer : nullptr;
        const TickResult result = AdvanceRun(state, tick);
        EXPECT_TRUE(result.GoesOn);
        EXPECT_EQ(tick.Counts.Steps, 5);  // of a tick on 150 cells
        EXPECT_EQ(tick.Counts.Floored, isObserved ? 2 * tick.Counts.Steps : 0);
        EXPECT_EQ(state.P[1], state.PFloor);
    }
}

TEST(Run, RestartGoesBackToTheFirstStateAndRepeatsTheRun) {
    ExperimentState state = CoarseTube();
    ASSERT_TRUE(RunWhole(state));
    EXPECT_FALSE(BeginRun(state)) << "only at time 0";
    // The first step of the very first run is bounded by the plot interval of the problem before.
    std::vector<double> rho;
    for (int run = 0; run < 2; ++run) {
        RestartRun(state);
        EXPECT_EQ(state.Time, 0.0);
        EXPECT_EQ(state.NStored, 1);
        ASSERT_TRUE(RunWhole(state));
        if (run > 0) {
            EXPECT_EQ(Cells(state.Rho, 60), rho);
        }
        rho = Cells(state.Rho, 60);
    }
}

TEST(Run, ContinueBringsTheLastStoredStateBackAfterBrowsing) {
    ExperimentState state = CoarseTube();
    EXPECT_FALSE(ContinueRun(state)) << "nothing is stored";
    ASSERT_TRUE(RunWhole(state));
    const int last = state.NStored - 1;
    LoadStoredState(state, 1);
    state.StoredStateNumber = 1;
    state.TStop *= 1.5;
    ASSERT_TRUE(ContinueRun(state));
    EXPECT_EQ(state.StoredStateNumber, last);
    EXPECT_EQ(state.Time, state.StoredT[last]);
    const int base = StoreStride(state) * last;
    for (int i = 1; i <= 60; ++i) ASSERT_EQ(state.Rho[i], state.SRho[base + i]);
    TickArrays tick(state, LoadSchemeLibrary(state.SchemeName));
    EXPECT_TRUE(RunToEnd(state, tick));
}

TEST(Run, ARefusalIsAFactUntilTheNextBeginning) {
    ExperimentState state = CoarseTube();
    state.SchemeName = "Osprey";
    EXPECT_FALSE(RunWhole(state));
    EXPECT_EQ(state.Stopped, 1);
    EXPECT_EQ(state.Time, 0.0);
    EXPECT_EQ(state.Refusal.Kind, RefusalKind::SchemeMissing);
    EXPECT_EQ(RefusalReason(state.Refusal), "there is no scheme \"Osprey\"");
    state.SchemeName = "Plover";
    EXPECT_TRUE(RunWhole(state));
    EXPECT_FALSE(state.Refusal);
}

TEST(Run, TheLedgerAccountsForWhatCrossesTheEnds) {
    for (const char* scheme : {"Kestrel", "Plover"}) {
        ExperimentState state = CoarseTube();
        state.SchemeName = scheme;
        Ledger ledger(state);
        StepObserver observer;
        observer.Accepts = [&](const ExperimentState& before, const TickArrays& step) {
            ledger.Take(before, step.StepDT);
        };
        const double massBefore = SumsOf(state).Mass;
        ASSERT_TRUE(RunWhole(state, &observer));
        const double rounding = std::string(scheme) == "Kestrel" ? 1e-8 : 1e-5;
        EXPECT_GT(SumsOf(state).Mass, massBefore * 1.1) << "gas flows in on the left";
        const Ledger::Drifts drifts = ledger.DriftsOf(state);
        EXPECT_NEAR(drifts.Mass.value(), 0.0, rounding) << scheme;
        EXPECT_NEAR(drifts.Momentum.value(), 0.0, rounding) << scheme;
        EXPECT_NEAR(drifts.Energy.value(), 0.0, rounding) << scheme;
    }
}
