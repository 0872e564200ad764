#include "core/run/strip_driver.h"

#include <algorithm>
#include <cassert>
#include <chrono>
#include <cmath>

#include "core/model/experiment_state.h"
#include "core/model/finite_values.h"
#include "core/model/wide_vectors.h"
#include "core/run/tick_arrays.h"

namespace {

// Metered work of a step, in cell updates, whatever the size of the grid.
constexpr int MeteredCells = 80000;

// Where a strip lies: strip cell x is grid cell Offset+x, x from 1 to Width.
struct Strip {
    int Offset;
    int Width;
};

// Times the strip loop while it lives.
class StripClock {
public:
    StripClock(const ExperimentState& state, TickArrays& tick)
        : seconds_(state.MeterOn > 0 ? &tick.StripSeconds : nullptr) {
        if (seconds_ != nullptr) start_ = Clock::now();
    }
    ~StripClock() {
        if (seconds_ == nullptr) return;
        *seconds_ = std::chrono::duration<double>(Clock::now() - start_).count();
    }
    StripClock(const StripClock&) = delete;
    StripClock& operator=(const StripClock&) = delete;

private:
    using Clock = std::chrono::steady_clock;
    double* seconds_;
    Clock::time_point start_;
};

// The scalar arguments, in the libraries' float type.
template <typename Float>
struct Constants {
    Constants(const ExperimentState& state, double stepDT)
        : StepDT(static_cast<Float>(stepDT)),
          Gamma(static_cast<Float>(state.Gamma)),
          RhoFloor(static_cast<Float>(state.RhoFloor)),
          AuxFloor(static_cast<Float>(state.AuxFloor)),
          PFloor(static_cast<Float>(state.PFloor)),
          VFloor(static_cast<Float>(state.VFloor)),
          difcon(static_cast<Float>(state.difcon)),
          shkjmp(static_cast<Float>(state.shkjmp)),
          wavhaf(static_cast<Float>(state.wavhaf)) {}

    Float StepDT, Gamma, RhoFloor, AuxFloor, PFloor, VFloor, difcon, shkjmp, wavhaf;
};

// Fills the 25 equal rows of strip cells 1-B..W+B of one field, in the library's float type. For a
// library that reads the middle row only, the others are skipped, which saves most of the work of a
// strip. Always inlined, like every loop over cells here, so that it is compiled for the vector
// width of its caller.
template <typename Float>
[[gnu::always_inline]] inline void FillRows(const OffsetArray<double>& field, const Strip& strip,
                                            int boundary, bool middleRowOnly,
                                            OffsetArray<Float>& rows) {
    constexpr int middle = StripArrays<Float>::Rows / 2;
    const int length = strip.Width + 2 * boundary;
    const int first = 1 - boundary;
    const double* source = field.At(strip.Offset + first);
    Float* filled = rows.At(first + middle * length);
    for (int i = 0; i < length; ++i) filled[i] = static_cast<Float>(source[i]);
    if (middleRowOnly) return;
    for (int row = 0; row < StripArrays<Float>::Rows; ++row) {
        if (row != middle) std::copy_n(filled, length, rows.At(first + row * length));
    }
}

template <typename Float>
WIDE_VECTORS void FillAllRows(const ExperimentState& state, const Strip& strip, bool middleRowOnly,
                              StripArrays<Float>& arrays) {
    const int b = state.NBDY;
    FillRows(state.Rho, strip, b, middleRowOnly, arrays.RhoRows);
    FillRows(state.P, strip, b, middleRowOnly, arrays.PRows);
    FillRows(state.Ux, strip, b, middleRowOnly, arrays.UxRows);
    FillRows(state.Uy, strip, b, middleRowOnly, arrays.UyRows);
}

// Moves the first `count` results into the field, raised to the floors, and marks every slot as not
// given. Returns whether all results moved were finite. One pass, because the library's own arrays
// evict ours from the cache between two strips.
template <typename Float, typename Raise>
[[gnu::always_inline]] inline bool Take(Float* results, int count, int widest, double* field,
                                        Raise raise) {
    FiniteCheck<Float> check;
    for (int i = 0; i < count; ++i) {
        check.Look(results[i]);
        field[i] = raise(results[i]);
        results[i] = NotGiven<Float>;
    }
    std::fill(results + count, results + widest, NotGiven<Float>);
    return check.AllWereFinite();
}

// Cells 1..count whose density or pressure lies below its floor.
template <typename Float>
int CountFloored(const ExperimentState& state, const StripArrays<Float>& arrays, int count) {
    int floored = 0;
    for (int i = 1; i <= count; ++i) {
        floored += arrays.RhoStrip[i] < state.RhoFloor || arrays.PStrip[i] < state.PFloor;
    }
    return floored;
}

// Moves the results of real cells 1..W to their place in the grid, up to cell N: Heron32's last
// strip reaches further. FSmokeNew is already zero where the scheme carries no smoke.
template <typename Float>
WIDE_VECTORS void TakeResults(StripArrays<Float>& arrays, const Strip& strip,
                              ExperimentState& state, TickArrays& tick) {
    const int first = strip.Offset + 1;
    const int count = std::min(strip.Width, state.NGridCells - strip.Offset);
    const int widest = arrays.Widest;
    const auto raisedTo = [](double floor) {
        return [floor](double value) { return value < floor ? floor : value; };
    };
    const auto flushToZero = [floor = state.VFloor](double velocity) {
        return (velocity < floor) & (velocity > -floor) ? 0.0 : velocity;
    };
    const auto unchanged = [](double value) { return value; };
    if (tick.Observer != nullptr) tick.FlooredNow += CountFloored(state, arrays, count);
    bool finite =
        Take(arrays.RhoStrip.At(1), count, widest, tick.RhoOut.At(first), raisedTo(state.RhoFloor));
    finite &= Take(arrays.PStrip.At(1), count, widest, tick.POut.At(first), raisedTo(state.PFloor));
    finite &= Take(arrays.UxStrip.At(1), count, widest, tick.UxOut.At(first), flushToZero);
    finite &= Take(arrays.UyStrip.At(1), count, widest, state.UyNew.At(first), flushToZero);
    if (tick.Library.CarriesSmoke()) {
        finite &=
            Take(arrays.SmokeStrip.At(1), count, widest, state.FSmokeNew.At(first), unchanged);
    }
    tick.ResultsAreFinite &= finite;
}

[[gnu::always_inline]] inline void Narrow(const OffsetArray<double>& wide, int first, int last,
                                          OffsetArray<float>& narrow) {
    std::transform(wide.At(first), wide.At(last) + 1, narrow.At(first),
                   [](double value) { return static_cast<float>(value); });
}

// True while the library is to be called again for the strip. A Courant number that is NaN spoils
// the attempt: nothing is called after it, or a later strip could overwrite it with a good one.
template <typename Float>
bool MayCall(const TickArrays& tick, Float courant, int calls) {
    return calls < tick.RepeatCount && !std::isnan(courant);
}

// Both Kestrel libraries take the same 26 arguments, in their own float type.
template <typename Float, typename Entry>
void CallKestrel(Entry* entry, const OffsetArray<Float>& x, const OffsetArray<Float>& smoke,
                 OffsetArray<Float>& uzOut, StripArrays<Float>& arrays, const Strip& strip,
                 int boundary, const Constants<Float>& constants, Float& courant,
                 TickArrays& tick) {
    const int first = 1 - boundary;
    const int from = strip.Offset + first;
    for (int repeat = 0; MayCall(tick, courant, repeat); ++repeat) {
        entry(x.At(from), arrays.RhoRows.At(first), arrays.PRows.At(first), arrays.UxRows.At(first),
              arrays.UyRows.At(first), arrays.ZeroRows.At(first), smoke.At(from),
              arrays.RhoStrip.At(first), arrays.PStrip.At(first), arrays.UxStrip.At(first),
              arrays.UyStrip.At(first), uzOut.At(from), arrays.SmokeStrip.At(first),
              &constants.StepDT, &courant, &constants.Gamma, &constants.RhoFloor,
              &constants.AuxFloor, &constants.PFloor, &constants.VFloor, &constants.difcon,
              &constants.shkjmp, &constants.wavhaf, &strip.Width, &boundary, &tick.OpCounters[1]);
    }
}

void CallHeron(const Strip& strip, int boundary, const Constants<float>& constants, float& courant,
               TickArrays& tick) {
    const int first = 1 - boundary;
    const int from = strip.Offset + first;
    NarrowedGrid& grid = tick.Grid32;
    StripArrays<float>& arrays = tick.Strip32;
    for (int repeat = 0; MayCall(tick, courant, repeat); ++repeat) {
        tick.Library.Heron32(
            grid.XS.At(from), grid.RhoS.At(from), grid.PS.At(from), grid.UxS.At(from),
            grid.UyS.At(from), grid.UyS.At(from), grid.SmokeS.At(from), arrays.RhoStrip.At(first),
            arrays.PStrip.At(first), arrays.UxStrip.At(first), arrays.UyStrip.At(first),
            grid.UzOutS.At(from), arrays.SmokeStrip.At(first), &constants.StepDT, &courant,
            &constants.Gamma, &constants.RhoFloor, &constants.AuxFloor, &constants.PFloor,
            &constants.VFloor, &strip.Width, &boundary, &tick.OpCounters[1]);
    }
}

void CallPlover(const Strip& strip, int boundary, const Constants<float>& constants, float& courant,
                TickArrays& tick) {
    const int first = 1 - boundary;
    const int from = strip.Offset + first;
    NarrowedGrid& grid = tick.Grid32;
    StripArrays<float>& arrays = tick.Strip32;
    const float* x = grid.XS.At(from);
    const float* rho = grid.RhoS.At(from);
    const float* p = grid.PS.At(from);
    const float* ux = grid.UxS.At(from);
    const float* uy = grid.UyS.At(from);
    const int middleRow = StripArrays<float>::Rows / 2 * (strip.Width + 2 * boundary);
    const float* zero = arrays.ZeroRows.At(first + middleRow);
    for (int repeat = 0; MayCall(tick, courant, repeat); ++repeat) {
        tick.Library.Plover(x, rho, rho, rho, rho, rho, p, p, p, p, p, ux, ux, ux, ux, ux, uy, uy,
                            uy, uy, uy, uy, uy, zero, zero, zero, zero, zero, zero, zero,
                            arrays.RhoStrip.At(first), arrays.PStrip.At(first),
                            arrays.UxStrip.At(first), arrays.UyStrip.At(first),
                            grid.UzOutS.At(from), &constants.StepDT, &courant, &constants.Gamma,
                            &constants.RhoFloor, &constants.AuxFloor, &constants.PFloor,
                            &constants.VFloor, &strip.Width, &boundary, &tick.OpCounters[1]);
    }
}

void Drive64(ExperimentState& state, TickArrays& tick) {
    const int n = state.NGridCells;
    const int b = state.NBDY;
    const StripPlan plan = PlanStrips(n, WidestStrip64);
    const Constants<double> constants(state, tick.StepDT);
    StripArrays<double>& arrays = tick.Strip64;

    const StripClock clock(state, tick);
    for (int s = 0; s < plan.StripCount; ++s) {
        Strip strip{s * plan.StripWidth, plan.StripWidth};
        strip.Width = std::min(strip.Width, n - strip.Offset);
        FillAllRows(state, strip, tick.Library.ReadsMiddleRowOnly, arrays);
        CallKestrel(tick.Library.Kestrel64, state.X, state.FSmoke, tick.UzOut, arrays, strip, b,
                    constants, tick.StepCourant, tick);
        TakeResults(arrays, strip, state, tick);
    }
}

// Narrows what a 32-bit library reads in place. The edges are narrowed once, since they do not
// change while the tick arrays live; rows are narrowed as they are filled.
WIDE_VECTORS void NarrowGrid(const ExperimentState& state, const SchemeLibrary& library,
                             NarrowedGrid& grid) {
    const int first = 1 - state.NBDY;
    const int last = state.NGridCells + state.NBDY + 1;
    if (!grid.HasEdges) Narrow(state.X, first, last, grid.XS);
    grid.HasEdges = true;
    assert(grid.XS[first] == static_cast<float>(state.X[first]));
    assert(grid.XS[last] == static_cast<float>(state.X[last]));
    if (library.CarriesSmoke()) Narrow(state.FSmoke, first, last, grid.SmokeS);
    if (library.Kestrel32 != nullptr) return;
    Narrow(state.Rho, first, last, grid.RhoS);
    Narrow(state.P, first, last, grid.PS);
    Narrow(state.Ux, first, last, grid.UxS);
    Narrow(state.Uy, first, last, grid.UyS);
}

void CallLibrary32(const ExperimentState& state, const Strip& strip, int boundary,
                   const Constants<float>& constants, float& courant, TickArrays& tick) {
    if (tick.Library.Heron32 != nullptr) {
        CallHeron(strip, boundary, constants, courant, tick);
    } else if (tick.Library.Plover != nullptr) {
        CallPlover(strip, boundary, constants, courant, tick);
    } else {
        NarrowedGrid& grid = tick.Grid32;
        StripArrays<float>& arrays = tick.Strip32;
        FillAllRows(state, strip, tick.Library.ReadsMiddleRowOnly, arrays);
        CallKestrel(tick.Library.Kestrel32, grid.XS, grid.SmokeS, grid.UzOutS, arrays, strip,
                    boundary, constants, courant, tick);
    }
}

void Drive32(ExperimentState& state, TickArrays& tick) {
    const int n = state.NGridCells;
    const int b = state.NBDY;
    const StripPlan plan = PlanStrips(n, WidestStrip32);
    const Constants<float> constants(state, tick.StepDT);
    auto courant = static_cast<float>(tick.StepCourant);
    NarrowedGrid& grid = tick.Grid32;
    StripArrays<float>& arrays = tick.Strip32;
    NarrowGrid(state, tick.Library, grid);
    if (!tick.Library.CarriesSmoke() && !tick.SmokeIsGone) {
        std::fill_n(state.FSmokeNew.At(1), n, 0.0);
    }

    {
        const StripClock clock(state, tick);
        for (int s = 0; s < plan.StripCount; ++s) {
            Strip strip{s * plan.StripWidth, plan.StripWidth};
            // Heron32's last strip keeps its width and may reach past cell N, even past the ghosts.
            if (tick.Library.Heron32 == nullptr) {
                strip.Width = std::min(strip.Width, n - strip.Offset);
            }
            CallLibrary32(state, strip, b, constants, courant, tick);
            TakeResults(arrays, strip, state, tick);
        }
    }
    tick.StepCourant = courant;
}

}  // namespace

int CallsPerStrip(const ExperimentState& state) {
    return MeteredCells * state.MeterOn / state.NGridCells + 1;
}

void AdvanceAllStrips(ExperimentState& state, TickArrays& tick) {
    if (!tick.Library.IsLoaded()) return;
    tick.OpCounters.fill(0);
    tick.FlooredNow = 0;
    tick.RepeatCount = CallsPerStrip(state);
    tick.ResultsAreFinite = true;
    if (tick.Library.Kestrel64 != nullptr) {
        Drive64(state, tick);
    } else {
        Drive32(state, tick);
    }
}
