#include "integration/strip_driver.h"

#include <gtest/gtest.h>

#include <vector>

#include "integration/boundary_zones.h"
#include "integration/tick_arrays.h"
#include "problems.h"

namespace {

// What the stand-in libraries were given, call by call.
struct Call {
    int Width;
    std::vector<double> Edges;  // of cells 1-B..W+B+1
    std::vector<double> Rho;    // of cells 1-B..W+B, as found in the arrays
    bool RowsAgree;
};
std::vector<Call> calls;

template <typename Float>
void Record(const Float* edges, const Float* rho, int rows, int width, int boundary) {
    const int length = width + 2 * boundary;
    Call call{width, {edges, edges + length + 1}, {rho, rho + length}, true};
    for (int i = 0; i < rows * length; ++i) {
        call.RowsAgree = call.RowsAgree && rho[i] == rho[i % length];
    }
    calls.push_back(call);
}

// Gives back the state it was given, cell by cell.
template <typename Float>
void Kestrel(const Float* edges, const Float* rho, const Float* p, const Float* ux, const Float* uy,
             const Float* uz, const Float* smoke, Float* rhoOut, Float* pOut, Float* uxOut,
             Float* uyOut, Float* uzOut, Float* smokeOut, const Float*, Float* courant,
             const Float*, const Float*, const Float*, const Float*, const Float*, const Float*,
             const Float*, const Float*, const int* width, const int* boundary, int* counters) {
    Record(edges, rho, 25, *width, *boundary);
    for (int x = *boundary; x < *boundary + *width; ++x) {
        rhoOut[x] = rho[x];
        pOut[x] = p[x];
        uxOut[x] = ux[x];
        uyOut[x] = uy[x];
        smokeOut[x] = smoke[x] + uz[x];
        uzOut[x] = Float(7);
    }
    *courant = Float(0.25) + *courant;
    counters[0] += *width;
    counters[7] += 1;
}

void Heron(const float* edges, const float* rho, const float*, const float*, const float* uy,
           const float* uyAgain, const float*, float* rhoOut, float*, float*, float* uyOut, float*,
           float*, const float*, float*, const float*, const float*, const float*, const float*,
           const float*, const int* width, const int* boundary, int*) {
    Record(edges, rho, 1, *width, *boundary);
    for (int x = *boundary; x < *boundary + *width; ++x) {
        rhoOut[x] = rho[x];
        uyOut[x] = uy[x] + uyAgain[x];
    }
}

ExperimentState Filled(int n) {
    ExperimentState state = WavyProblem(n);
    state.MnBdry = 2;
    state.MxBdry = 1;
    FillBoundaryZones(state);
    calls.clear();
    return state;
}

std::vector<int> Widths() {
    std::vector<int> widths;
    for (const Call& call : calls) widths.push_back(call.Width);
    return widths;
}

}  // namespace

TEST(StripDriver, CutsTheGridIntoEqualStrips) {
    const struct {
        int n;
        std::vector<int> kestrel, kestrel32, heron;
    } rows[] = {{6, {6}, {6}, {6}},
                {101, {51, 50}, {101}, {101}},
                {400, {100, 100, 100, 100}, {200, 200}, {200, 200}},
                {401, {81, 81, 81, 81, 77}, {134, 134, 133}, {134, 134, 134}}};
    for (const auto& row : rows) {
        const std::vector<int>* expected[] = {&row.kestrel, &row.kestrel32, &row.heron};
        for (int scheme = 0; scheme < 3; ++scheme) {
            ExperimentState state = Filled(row.n);
            SchemeLibrary library;
            if (scheme == 0) library.Kestrel64 = Kestrel<double>;
            if (scheme == 1) library.Kestrel32 = Kestrel<float>;
            if (scheme == 2) library.Heron32 = Heron;
            TickArrays tick(state, library);
            AdvanceAllStrips(state, tick);
            EXPECT_EQ(Widths(), *expected[scheme]) << row.n << " cells, scheme " << scheme;
        }
    }
}

TEST(StripDriver, HandsEveryStripItsOwnCellsAndNeighbours) {
    for (const int n : {6, 101, 401}) {
        const ExperimentState before = Filled(n);
        for (const bool narrow : {false, true}) {
            ExperimentState state = before;
            calls.clear();
            SchemeLibrary library;
            if (narrow) {
                library.Kestrel32 = Kestrel<float>;
            } else {
                library.Kestrel64 = Kestrel<double>;
            }
            TickArrays tick(state, library);
            AdvanceAllStrips(state, tick);
            const auto as = [&](double v) { return narrow ? static_cast<float>(v) : v; };
            int offset = 0;
            for (const Call& call : calls) {
                EXPECT_TRUE(call.RowsAgree);
                for (int x = -5; x <= call.Width + 6; ++x) {
                    const auto place = static_cast<std::size_t>(x + 5);
                    ASSERT_EQ(call.Rho[place], as(before.Rho[offset + x]));
                    ASSERT_EQ(call.Edges[place], as(before.X[offset + x]));
                }
                offset += call.Width;
            }
            for (int i = 1; i <= n; ++i) {
                ASSERT_EQ(tick.RhoOut[i], as(before.Rho[i]));
                ASSERT_EQ(tick.POut[i], as(before.P[i]));
                ASSERT_EQ(tick.UxOut[i], as(before.Ux[i]));
                ASSERT_EQ(state.UyNew[i], as(before.Uy[i]));
                ASSERT_EQ(state.FSmokeNew[i], before.FSmoke[i]);
                ASSERT_EQ(state.Rho[i], before.Rho[i]);
            }
            // One Courant number for all strips, and counters summed over them.
            EXPECT_EQ(tick.StepCourant, 0.25 * static_cast<double>(calls.size()));
            EXPECT_EQ(tick.OpCounters[1], n);
            EXPECT_EQ(tick.OpCounters[8], static_cast<int>(calls.size()));
        }
    }
}

// 4801 cells are 25 strips of 193: the last ends at cell 4825, past the ghosts that end at 4807.
TEST(StripDriver, LetsTheLastHeronStripReadZerosBeyondTheGhosts) {
    ExperimentState state = Filled(4801);
    SchemeLibrary library;
    library.Heron32 = Heron;
    TickArrays tick(state, library);
    AdvanceAllStrips(state, tick);
    ASSERT_EQ(calls.size(), 25u);
    const Call& last = calls.back();
    const int offset = 24 * 193;
    for (int x = -5; x <= 193 + 6; ++x) {
        const auto place = static_cast<std::size_t>(x + 5);
        const bool known = offset + x <= 4801 + 7;
        ASSERT_EQ(last.Edges[place], known ? static_cast<float>(state.X[offset + x]) : 0.0F) << x;
        if (offset + x > 4801 + 7) {
            ASSERT_EQ(last.Rho[place], 0.0F) << x;
        }
    }
    EXPECT_EQ(state.UyNew[4801], 2.0F * static_cast<float>(state.Uy[4801]));
}

TEST(StripDriver, RepeatsMeteredCallsWithoutChangingTheResult) {
    const struct { int n, repeats; } rows[] = {{400, 201}, {1000, 81}, {5000, 17}, {5001, 16}};
    for (const auto& row : rows) {
        ExperimentState state = Filled(row.n);
        state.MeterOn = 1;
        SchemeLibrary library;
        library.Kestrel32 = Kestrel<float>;
        TickArrays tick(state, library);
        AdvanceAllStrips(state, tick);
        EXPECT_EQ(tick.RepeatCount, row.repeats);
        EXPECT_EQ(tick.OpCounters[1], row.repeats * row.n);
        EXPECT_EQ(tick.RhoOut[row.n], static_cast<float>(state.Rho[row.n]));
        EXPECT_GT(tick.StripSeconds, 0.0);
    }
}

TEST(StripDriver, GivesNoSmokeWherePloverHasNone) {
    ExperimentState state = Filled(30);
    state.FSmokeNew[5] = 9.0;
    SchemeLibrary library;
    library.Plover = [](const float*, const float* rho, const float*, const float*, const float*,
                        const float*, const float*, const float*, const float*, const float*,
                        const float*, const float*, const float*, const float*, const float*,
                        const float*, const float*, const float*, const float*, const float*,
                        const float*, const float*, const float*, const float* third, const float*,
                        const float*, const float*, const float*, const float*, const float*,
                        float* rhoOut, float*, float*, float*, float*, const float*, float*,
                        const float*, const float*, const float*, const float*, const float*,
                        const int* width, const int* boundary, int*) {
        for (int x = *boundary; x < *boundary + *width; ++x) rhoOut[x] = rho[x] + third[x];
    };
    TickArrays tick(state, library);
    AdvanceAllStrips(state, tick);
    EXPECT_EQ(state.FSmokeNew[5], 0.0);
    EXPECT_EQ(tick.RhoOut[30], static_cast<float>(state.Rho[30]));
}
