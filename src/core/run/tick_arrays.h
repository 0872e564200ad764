// What the steps of a run work with. Nothing in here outlives a tick but room and counts.
#pragma once

#include <array>
#include <limits>

#include "core/model/offset_array.h"
#include "core/run/scheme_library.h"
#include "core/run/step_observer.h"

struct ExperimentState;

// The grid is handed to a library in strips of at most this many real cells.
constexpr int WidestStrip64 = 100;
constexpr int WidestStrip32 = 200;

// StripCount strips of StripWidth real cells each, as equal as they can be; the last may be
// narrower, or reach past cell N.
struct StripPlan {
    int StripCount = 0;
    int StripWidth = 0;
};
StripPlan PlanStrips(int nGridCells, int widestStrip);

// The value of a result that the library has not written.
template <typename Float>
constexpr Float NotGiven = std::numeric_limits<Float>::quiet_NaN();

// The strip under way. A row is strip cells 1-B..W+B; the row arrays hold 25 equal rows one behind
// the other, ZeroRows nothing but zeros; a result array is strip cells 1-B..W+B+1. B is NBDY and W
// the width of the strip. Before a call the real cells of the results are marked as not given: a
// cell that the library leaves out is NaN, not a leftover of another strip. The code that takes the
// results marks them again, up to the widest strip of the plan, for which the arrays are sized.
template <typename Float>
struct StripArrays {
    static constexpr int Rows = 25;

    StripArrays() = default;
    StripArrays(int widest, int boundary);

    int Widest = 0;
    // Indexed by strip cell, the rows by that of the first row: both begin at 1-B.
    OffsetArray<Float> RhoRows, PRows, UxRows, UyRows, ZeroRows;
    OffsetArray<Float> RhoStrip, PStrip, UxStrip, UyStrip, SmokeStrip;
};

// The whole grid narrowed for the 32-bit libraries. Cells -6..N+B+1 at least, and as far as the
// last full strip of Heron32 reaches; all zero beyond the ghost cells.
struct NarrowedGrid {
    NarrowedGrid() = default;
    explicit NarrowedGrid(int last);

    bool HasEdges = false;  // XS is filled
    OffsetArray<float> XS, RhoS, PS, UxS, UyS, SmokeS;
    OffsetArray<float> UzOutS;  // the libraries' third velocity, unused
};

struct TickArrays {
    // Everything is allocated here, none of it during a step, and only for the road that the
    // scheme takes.
    TickArrays(const ExperimentState& state, const SchemeLibrary& library);

    SchemeLibrary Library;
    double StepDT = 0.0;       // DTime, as handed to the library
    double StepCourant = 0.0;  // Courant number of the step under way
    bool ResultsAreFinite = true;

    // New state of cells 1..N, on arrays as long as the fields whose place they take.
    OffsetArray<double> RhoOut, POut, UxOut;
    OffsetArray<double> UzOut;  // the library's third velocity, unused
    bool SmokeIsGone =
        false;  // FSmoke and FSmokeNew are zero: a scheme without smoke has taken a step
    NarrowedGrid Grid32;
    StripArrays<double> Strip64;
    StripArrays<float> Strip32;

    const StepObserver* Observer = nullptr;  // not owned
    StepCounts Counts;                       // of all ticks that the arrays have served
    int FlooredNow = 0;                      // of the attempt under way, see StepCounts

    int RepeatCount = 1;              // calls per strip, above 1 only for the meter
    std::array<int, 9> OpCounters{};  // 1 to 8 are the libraries' operation counts
    double StripSeconds = 0.0;        // duration of the strip loop, 0 with the meter off
};
