#include "core/picture/state_sentences.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/setup/blast_waves.h"

namespace {

ExperimentState BlastWaves() {
    ExperimentState state;
    BuildBlastWaves(state);
    return state;
}

}  // namespace

TEST(StateSentences, SayHowTheRunStands) {
    const struct {
        int stopped;
        double time;
        const char* sentence;
        std::size_t locks;
    } rows[] = {
        {1, 0.0, "Ready to begin at t = 0. Set-up is open.", 2},
        {0, 0.0, "Running at t = 0.0, to 0.2. Set-up is locked.", 9},
        {0, 0.1, "Running at t = 0.1, to 0.2. Set-up is locked.", 10},
        {1, 0.153, "Halted at t = 0.153. Set-up is locked until Restart.", 6},
        {1, 0.201, "Ended at t = 0.201. Set-up is locked until Restart.", 6},
    };
    for (const auto& row : rows) {
        ExperimentState state = BlastWaves();
        state.TStop = 0.2;
        state.Stopped = row.stopped;
        state.Time = row.time;
        EXPECT_EQ(RunSentence(state), row.sentence);
        EXPECT_EQ(LockSentences(state).size(), row.locks) << row.sentence;
    }
}

TEST(StateSentences, TellWhatIsRefusedAndWhatHolds) {
    const struct {
        Entry entry;
        const char* text;
        const char* inSetUp;  // the reason, by its first words; null where it is taken
        const char* running;
        const char* holds;
    } rows[] = {
        {Entry::CourantNumber, "1", "it must lie above 0", "the run goes on", "0.85"},
        {Entry::CourantNumber, "0.5", nullptr, "the run goes on", "0.85"},
        {Entry::NGridCells, "5", "the grid has 6", "a run has begun", "400"},
        {Entry::NGridCells, "99999", nullptr, "a run has begun", "400"},
        {Entry::NPeriods, "0", "it must be above 0", "a run has begun", "0.1"},
        {Entry::NPlotsPerPeriod, "0.4", "it must be 1", "a run has begun", nullptr},
        {Entry::MSelected, "401", "the cells are 1 to 400", "the cells are 1 to 400", nullptr},
        {Entry::MSec, "x", "it is no number", "it is no number", "5"},
        {Entry::Density, "0.", "it must be above 0", "it must be above 0", nullptr},
        {Entry::Pressure, "-3", nullptr, nullptr, nullptr},
        {Entry::Velocity, "1e13", "it is too large", "it is too large", nullptr},
        {Entry::StoredStateNumber, "7", "no such state", "the run goes on", "0"},
    };
    ExperimentState ready = BlastWaves();
    ready.Periods = 0.1;
    ExperimentState running = ready;
    running.Stopped = 0;
    running.Time = 0.01;
    for (const auto& row : rows) {
        const auto expect = [&](const ExperimentState& state, const char* why) {
            const std::string trouble = EntryTrouble(state, row.entry, row.text);
            EXPECT_EQ(trouble.empty(), why == nullptr) << row.text << ": " << trouble;
            if (why != nullptr) {
                EXPECT_TRUE(trouble.starts_with(why)) << trouble;
            }
        };
        expect(ready, row.inSetUp);
        expect(running, row.running);
        if (row.holds != nullptr) {
            EXPECT_EQ(ValueInForce(ready, row.entry), row.holds);
        }
    }
}

TEST(StateSentences, TellTheSetUp) {
    ExperimentState state = BlastWaves();
    EXPECT_EQ(EndsSentence(state), "The left end is a wall, the right end is a wall.");
    state.MnBdry = 2;
    state.MxBdry = 4;
    EXPECT_EQ(EndsSentence(state), "The left end is open, the right end is open.");
    state.MnBdry = 4;
    EXPECT_TRUE(EndsSentence(state).starts_with("The ends are periodic"));
    state.SchemeName = "Plover";
    EXPECT_EQ(SchemeSentence(state),
              "The scheme is Plover, 32 bits, with a Courant number of 0.85.");
    state.SchemeName = "plover";
    EXPECT_TRUE(SchemeSentence(state).ends_with("no run will go."));
    state.MSelected = 1;
    EXPECT_EQ(CellSentence(state),
              "Cell 1 of 400, a control point, is selected: x = 0.00125, density 1.0, pressure "
              "1000.0, velocity 0.0.");
}
