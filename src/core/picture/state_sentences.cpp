#include "core/picture/state_sentences.h"

#include <cmath>
#include <optional>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/picture/caption_text.h"
#include "core/run/scheme_table.h"
#include "core/run/state_store.h"
#include "core/setup/control_points.h"

namespace {

constexpr int FewestCells = 6;

std::string TimeText(double time) {
    return FormatNumber(time, "#0.0####");
}

std::string ValueText(double value) {
    return FormatNumber(value, "##0.0####");
}

// What only a set-up is open for.
std::string SetUpTrouble(const ExperimentState& state) {
    if (state.Time != 0.0) return "a run has begun: press Restart first";
    return state.Stopped == 0 ? "the run goes on: press Pause first" : "";
}

std::string StopTrouble(const ExperimentState& state) {
    return state.Stopped == 0 ? "the run goes on: press Pause first" : "";
}

bool IsSetUpEntry(Entry entry) {
    return entry == Entry::NGridCells || entry == Entry::NPeriods ||
           entry == Entry::NPlotsPerPeriod;
}

bool NeedsStop(Entry entry) {
    return entry == Entry::CourantNumber || entry == Entry::StoredStateNumber;
}

std::string CellCountTrouble(const ExperimentState& state, double number) {
    if (number < FewestCells) return "the grid has 6 cells at least";
    if (state.NSelected > number) return "the problem has more control points than that";
    return "";
}

std::string StoredStateTrouble(const ExperimentState& state, double number) {
    if (number < 0.0) return "it must be 0 or more";
    const int s = RoundToEven(number);
    if (s >= state.NStored || !IsStored(state, s)) return "no such state is stored";
    return "";
}

std::string NumberTrouble(const ExperimentState& state, Entry entry, double number) {
    const bool isTooLarge = std::abs(number) > LargestValue;
    switch (entry) {
        case Entry::NGridCells:
            return CellCountTrouble(state, number);
        case Entry::StoredStateNumber:
            return StoredStateTrouble(state, number);
        case Entry::MSelected:
            if (number > 0.0 && RoundToEven(number) >= 1 && RoundToEven(number) <= state.NGridCells)
                return "";
            return "the cells are 1 to " + GeneralNumber(state.NGridCells);
        case Entry::CourantNumber:
            if (number >= SmallestCourantNumber && number < 1.0) return "";
            return "it must lie above 0 and below 1";
        case Entry::NPlotsPerPeriod:
            return number > 0.0 && RoundToEven(number) >= 1 ? "" : "it must be 1 or more";
        case Entry::Density:
        case Entry::NPeriods:
        case Entry::MSec:
            if (number <= 0.0) return "it must be above 0";
            return isTooLarge && entry != Entry::MSec ? "it is too large" : "";
        case Entry::Pressure:
        case Entry::Velocity:
            return isTooLarge ? "it is too large" : "";
    }
    return "";
}

std::string EndText(int type) {
    if (type == ReflectingBoundary) return "a wall";
    return type == PeriodicBoundary ? "periodic" : "open";
}

void AddIf(std::vector<std::string>& sentences, const std::string& trouble,
           const std::string& names) {
    if (!trouble.empty()) sentences.push_back(names + ": " + trouble + ".");
}

}  // namespace

std::string NameOf(Press press) {
    switch (press) {
        case Press::Begin:
            return "Begin";
        case Press::Continue:
            return "Continue";
        case Press::Bdrys:
            return "Bdrys";
        case Press::NumericalScheme:
            return "PPM? Mflops?";
        case Press::GetDiffConsts:
            return "Get Diff Consts";
        case Press::Select:
            return "Select";
        case Press::Reset:
            return "Reset";
        case Press::SoundWave:
            return "Sound Wave";
        case Press::StoredStateBar:
            return "The bar of stored states";
        case Press::PlaceInPicture:
            return "A place in the gray picture";
    }
    return "";
}

std::string NameOf(Entry entry) {
    switch (entry) {
        case Entry::NGridCells:
            return "N Grid Cells";
        case Entry::MSelected:
            return "M Selected";
        case Entry::Density:
            return "Density";
        case Entry::Pressure:
            return "Pressure";
        case Entry::Velocity:
            return "Velocity";
        case Entry::CourantNumber:
            return "Courant Number";
        case Entry::MSec:
            return "msec per step";
        case Entry::NPeriods:
            return "Time Units to Run";
        case Entry::NPlotsPerPeriod:
            return "Plots / Time Unit";
        case Entry::StoredStateNumber:
            return "Stored State";
    }
    return "";
}

std::string PressTrouble(const ExperimentState& state, Press press) {
    switch (press) {
        case Press::Begin:
            return state.Time != 0.0 ? "a run has begun: press Restart first" : "";
        case Press::Continue:
            return state.NStored < 1 ? "no state is stored yet: press Begin" : "";
        case Press::StoredStateBar:
            return StopTrouble(state);
        case Press::PlaceInPicture:
            if (state.Stopped == 0) return StopTrouble(state);
            return state.NStored <= 1 ? "no run is stored yet" : "";
        default:
            return SetUpTrouble(state);
    }
}

std::string EntryTrouble(const ExperimentState& state, Entry entry, const std::string& text) {
    if (IsSetUpEntry(entry) && !IsBeforeRun(state)) return SetUpTrouble(state);
    if (NeedsStop(entry) && state.Stopped == 0) return StopTrouble(state);
    const std::optional<double> number = ReadNumber(text);
    if (!number) return "it is no number";
    return NumberTrouble(state, entry, *number);
}

std::string ValueInForce(const ExperimentState& state, Entry entry) {
    switch (entry) {
        case Entry::NGridCells:
            return GeneralNumber(state.NGridCells);
        case Entry::MSelected:
            return GeneralNumber(state.MSelected);
        case Entry::Density:
            return ValueText(state.RhoSel);
        case Entry::Pressure:
            return ValueText(state.PSel);
        case Entry::Velocity:
            return ValueText(state.VxSel);
        case Entry::CourantNumber:
            return GeneralNumber(state.CourantNumber);
        case Entry::MSec:
            return GeneralNumber(state.MSec);
        case Entry::NPeriods:
            return GeneralNumber(state.Periods);
        case Entry::NPlotsPerPeriod:
            return GeneralNumber(state.NPlotsPerPeriod);
        case Entry::StoredStateNumber:
            return GeneralNumber(state.StoredStateNumber);
    }
    return "";
}

std::string RunSentence(const ExperimentState& state) {
    const std::string time = TimeText(state.Time);
    if (state.Stopped == 0) {
        return "Running at t = " + time + ", to " + TimeText(state.TStop) + ". Set-up is locked.";
    }
    const std::string locked =
        state.Time == 0.0 ? "Set-up is open." : "Set-up is locked until Restart.";
    if (state.Refusal) {
        return "Stopped at t = " + time + ": " + RefusalReason(state.Refusal) + ". " + locked;
    }
    if (state.Time == 0.0) return "Ready to begin at t = 0. " + locked;
    const char* how = state.Time >= state.TStop ? "Ended" : "Halted";
    return how + (" at t = " + time) + ". " + locked;
}

std::string EndsSentence(const ExperimentState& state) {
    if (state.MnBdry == PeriodicBoundary) {
        return "The ends are periodic: what leaves on one side enters on the other.";
    }
    // The right end is periodic only where the left one is.
    const std::string right =
        EndText(state.MxBdry == PeriodicBoundary ? ContinuationBoundary : state.MxBdry);
    return "The left end is " + EndText(state.MnBdry) + ", the right end is " + right + ".";
}

std::string SchemeSentence(const ExperimentState& state) {
    const SchemeRow* const scheme = FindScheme(state.SchemeName);
    if (scheme == nullptr) {
        return "The scheme \"" + state.SchemeName + "\" is none of the four: no run will go.";
    }
    return "The scheme is " + state.SchemeName + ", " + GeneralNumber(scheme->FloatBits) +
           " bits, with a Courant number of " + GeneralNumber(state.CourantNumber) +
           (state.MeterOn != 0 ? "; the meter is on." : ".");
}

std::string ConstantsSentence(const ExperimentState& state) {
    return "The constants of Kestrel are difcon = " + GeneralNumber(state.difcon) +
           ", shkjmp = " + GeneralNumber(state.shkjmp) +
           ", wavhaf = " + GeneralNumber(state.wavhaf) + ".";
}

std::string CellSentence(const ExperimentState& state) {
    const int m = state.MSelected;
    const bool isPoint = FindControlPoint(state, m) > 0;
    return "Cell " + GeneralNumber(m) + " of " + GeneralNumber(state.NGridCells) +
           (isPoint ? ", a control point," : "") +
           " is selected: x = " + FormatNumber((state.X[m] + state.X[m + 1]) * 0.5, "0.0####") +
           ", density " + ValueText(state.Rho[m]) + ", pressure " + ValueText(state.P[m]) +
           ", velocity " + ValueText(state.Ux[m]) + ".";
}

std::string StoreSentence(const ExperimentState& state) {
    if (state.NStored <= 1) return "No run is stored.";
    const std::string stored = GeneralNumber(state.NStored) + " states are stored";
    const int s = state.StoredStateNumber;
    if (state.Stopped == 0 || s < 0 || s >= state.NStored) return stored + ".";
    return stored + "; number " + GeneralNumber(s) +
           " was the last one shown, t = " + TimeText(state.StoredT[s]) + ".";
}

std::vector<std::string> LockSentences(const ExperimentState& state) {
    std::vector<std::string> sentences;
    AddIf(sentences, PressTrouble(state, Press::Begin), "Begin");
    AddIf(sentences, PressTrouble(state, Press::Continue), "Continue");
    const std::string setUp = SetUpTrouble(state);
    AddIf(sentences, setUp, "Bdrys, PPM? Mflops?, Get Diff Consts");
    AddIf(sentences, setUp, "Select, Reset, Sound Wave");
    AddIf(sentences, setUp, "N Grid Cells, Time Units to Run, Plots / Time Unit");
    AddIf(sentences, StopTrouble(state), "Courant Number");
    AddIf(sentences, StopTrouble(state), "The bar and the box of stored states");
    AddIf(sentences, PressTrouble(state, Press::PlaceInPicture), "A place in the gray picture");
    if (state.Stopped == 0) {
        sentences.emplace_back(
            "The bars of density, pressure and velocity do not follow their boxes during a run.");
    }
    if (state.SoundWaveMode == 0 && (state.Stopped == 0 || state.StoredStateNumber != 0)) {
        sentences.emplace_back(
            "The control points are marked only while stopped, at stored state 0.");
    }
    return sentences;
}

std::vector<std::string> StateSentences(const ExperimentState& state) {
    std::vector<std::string> sentences = {RunSentence(state),    EndsSentence(state),
                                          SchemeSentence(state), ConstantsSentence(state),
                                          CellSentence(state),   StoreSentence(state)};
    for (std::string& lock : LockSentences(state)) sentences.push_back(std::move(lock));
    return sentences;
}
