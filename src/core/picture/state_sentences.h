// The state of the panel in words: pure functions of the record.
#pragma once

#include <string>
#include <vector>

struct ExperimentState;

// Presses that a lock may refuse, by the captions of their controls.
enum class Press {
    Begin,
    Continue,
    Bdrys,
    NumericalScheme,
    GetDiffConsts,
    Select,
    Reset,
    SoundWave,
    StoredStateBar,
    PlaceInPicture,  // going to a stored state by a press on the space-time picture
};

// Boxes that take what is typed.
enum class Entry {
    NGridCells,
    MSelected,
    Density,
    Pressure,
    Velocity,
    CourantNumber,
    MSec,
    NPeriods,
    NPlotsPerPeriod,
    StoredStateNumber,
};

// Why the press, or the text in the box, does nothing now, as part of a sentence: "a run has begun:
// press Restart first". Empty if it does something.
std::string PressTrouble(const ExperimentState& state, Press press);
std::string EntryTrouble(const ExperimentState& state, Entry entry, const std::string& text);

// What the user sees on the control: "Begin", "N Grid Cells".
std::string NameOf(Press press);
std::string NameOf(Entry entry);

// The value that counts, whatever stands in the box.
std::string ValueInForce(const ExperimentState& state, Entry entry);

// How the run stands and what follows from it: "Halted at t = 0.153. Set-up is locked until
// Restart."
std::string RunSentence(const ExperimentState& state);

// The ends of the tube, the scheme and its constants, the selected cell, the stored states.
std::string EndsSentence(const ExperimentState& state);
std::string SchemeSentence(const ExperimentState& state);
std::string ConstantsSentence(const ExperimentState& state);
std::string CellSentence(const ExperimentState& state);
std::string StoreSentence(const ExperimentState& state);

// One sentence for every lock that holds now; none in set-up but for what there is nothing to do
// with.
std::vector<std::string> LockSentences(const ExperimentState& state);

// All of the above, the run first.
std::vector<std::string> StateSentences(const ExperimentState& state);
