#include "part_clock.h"

#include <string>
#include <utility>

#include "loading/scheme_loader.h"

struct Controls;
struct ExperimentState;
struct TickArrays;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;

PartClock& PartClock::Get() {
    static PartClock clock;
    return clock;
}

void PartClock::Pause() {
    TurnTo(part_);
    isRunning_ = false;
}

void PartClock::Resume() {
    TurnTo(part_);
    isRunning_ = true;
}

Part PartClock::TurnTo(Part part) {
    const Clock::time_point now = Clock::now();
    if (isRunning_) {
        const std::chrono::duration<double> passed = now - since_;
        seconds_[static_cast<std::size_t>(part_)] += passed.count();
    }
    since_ = now;
    return std::exchange(part_, part);
}

namespace {

// Stands in for an entry point of a scheme library.
template <typename Entry>
struct TimedEntry;

template <typename... Arguments>
struct TimedEntry<void(Arguments...)> {
    using Entry = void(Arguments...);

    static Entry*& Loaded() {
        static Entry* entry = nullptr;
        return entry;
    }
    static void Call(Arguments... arguments) {
        const TimeOf time(Part::Scheme);
        Loaded()(arguments...);
    }
    static Entry* For(Entry* entry) {
        if (entry == nullptr) return nullptr;
        Loaded() = entry;
        return &Call;
    }
};

}  // namespace

// The names that the linker knows the procedures by: __real_ is the instrument's own one, and
// __wrap_ what is called in its place.
extern "C" {

SchemeLibrary __real__Z17LoadSchemeLibraryRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE(
    const std::string&);
SchemeLibrary __wrap__Z17LoadSchemeLibraryRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE(
    const std::string& schemeName) {
    SchemeLibrary library =
        __real__Z17LoadSchemeLibraryRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE(
            schemeName);
    library.Kestrel64 = TimedEntry<Kestrel64Entry>::For(library.Kestrel64);
    library.Kestrel32 = TimedEntry<Kestrel32Entry>::For(library.Kestrel32);
    library.Heron32 = TimedEntry<Heron32Entry>::For(library.Heron32);
    library.Plover = TimedEntry<PloverEntry>::For(library.Plover);
    return library;
}

bool __real__Z12TakeTimeStepR15ExperimentStateR10TickArrays(ExperimentState&, TickArrays&);
bool __wrap__Z12TakeTimeStepR15ExperimentStateR10TickArrays(ExperimentState& state,
                                                            TickArrays& tick) {
    const bool isTaken = __real__Z12TakeTimeStepR15ExperimentStateR10TickArrays(state, tick);
    if (isTaken) PartClock::Get().CountStep();
    return isTaken;
}

void __real__Z16AdvanceAllStripsR15ExperimentStateR10TickArrays(ExperimentState&, TickArrays&);
void __wrap__Z16AdvanceAllStripsR15ExperimentStateR10TickArrays(ExperimentState& state,
                                                                TickArrays& tick) {
    const TimeOf time(Part::Driver);
    __real__Z16AdvanceAllStripsR15ExperimentStateR10TickArrays(state, tick);
}

void __real__Z10StoreStateR15ExperimentState(ExperimentState&);
void __wrap__Z10StoreStateR15ExperimentState(ExperimentState& state) {
    const TimeOf time(Part::Store);
    __real__Z10StoreStateR15ExperimentState(state);
}

void __real__Z18ClearAndPaintPlotsR15ExperimentStateR8Controls(ExperimentState&, Controls&);
void __wrap__Z18ClearAndPaintPlotsR15ExperimentStateR8Controls(ExperimentState& state,
                                                               Controls& controls) {
    const TimeOf time(Part::Plots);
    __real__Z18ClearAndPaintPlotsR15ExperimentStateR8Controls(state, controls);
}

void __real__Z16PaintFirstStatesR15ExperimentStateR8Controlsi(ExperimentState&, Controls&, int);
void __wrap__Z16PaintFirstStatesR15ExperimentStateR8Controlsi(ExperimentState& state,
                                                              Controls& controls, int states) {
    const TimeOf time(Part::Picture);
    __real__Z16PaintFirstStatesR15ExperimentStateR8Controlsi(state, controls, states);
}

void __real__Z7PutTextP9QLineEditRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE(
    QLineEdit*, const std::string&);
void __wrap__Z7PutTextP9QLineEditRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE(
    QLineEdit* box, const std::string& text) {
    const TimeOf time(Part::Widgets);
    __real__Z7PutTextP9QLineEditRKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE(box, text);
}

void __real__Z11PutBarValueP10QScrollBari(QScrollBar*, int);
void __wrap__Z11PutBarValueP10QScrollBari(QScrollBar* bar, int value) {
    const TimeOf time(Part::Widgets);
    __real__Z11PutBarValueP10QScrollBari(bar, value);
}

void __real__Z11PutBarRangeP10QScrollBarii(QScrollBar*, int, int);
void __wrap__Z11PutBarRangeP10QScrollBarii(QScrollBar* bar, int minimum, int maximum) {
    const TimeOf time(Part::Widgets);
    __real__Z11PutBarRangeP10QScrollBarii(bar, minimum, maximum);
}

}  // extern "C"
