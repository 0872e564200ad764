#include "integration/strip_driver.h"

#include <gtest/gtest.h>

#include <tuple>
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
bool kestrelReadsMiddleRow = false;  // and no other

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
    const int length = *width + 2 * *boundary;
    Record(edges, rho, kestrelReadsMiddleRow ? 1 : 25, *width, *boundary);
    for (int x = *boundary; x < *boundary + *width; ++x) {
        const int read = kestrelReadsMiddleRow ? 12 * length + x : x;
        rhoOut[x] = rho[read];
        pOut[x] = p[read];
        uxOut[x] = ux[read];
        uyOut[x] = uy[read];
        smokeOut[x] = smoke[x] + uz[x];
        uzOut[x] = Float(7);
    }
    *courant += Float(0.25);
    counters[0] += *width;
    counters[7] += 1;
}

// Reads the transverse velocity twice, and nothing but the other three.
void Heron(const float* edges, const float* rho, const float* p, const float* ux, const float* uy,
           const float* uyAgain, const float* smoke, float* rhoOut, float* pOut, float* uxOut,
           float* uyOut, float*, float* smokeOut, const float*, float* courant, const float*,
           const float*, const float*, const float*, const float*, const int* width,
           const int* boundary, int* counters) {
    Record(edges, rho, 1, *width, *boundary);
    for (int x = *boundary; x < *boundary + *width; ++x) {
        rhoOut[x] = rho[x];
        pOut[x] = p[x];
        uxOut[x] = ux[x];
        uyOut[x] = (uy[x] + uyAgain[x]) / 2;
        smokeOut[x] = smoke[x];
    }
    *courant += 0.25F;
    counters[0] += *width;
    counters[7] += 1;
}

const SchemeLibrary Libraries[] = {
    {.Kestrel64 = Kestrel<double>, .Kestrel32 = {}, .Heron32 = {}, .Plover = {}},
    {.Kestrel64 = {}, .Kestrel32 = Kestrel<float>, .Heron32 = {}, .Plover = {}},
    {.Kestrel64 = {}, .Kestrel32 = {}, .Heron32 = Heron, .Plover = {}}};

ExperimentState Filled(int n) {
    ExperimentState state = WavyProblem(n);
    state.MnBdry = 2;
    state.MxBdry = 1;
    FillBoundaryZones(state);
    calls.clear();
    return state;
}

}  // namespace

TEST(StripDriver, CutsTheGridAndHandsEveryStripItsOwnCellsAndNeighbours) {
    // clang-format off
    const struct { int n; struct { int Count, Width, Last; } cuts[3]; } rows[] = {
        {6,    {{1,  6,   6},   {1,  6,   6},   {1,  6,   6}}},
        {101,  {{2,  51,  50},  {1,  101, 101}, {1,  101, 101}}},
        {400,  {{4,  100, 100}, {2,  200, 200}, {2,  200, 200}}},
        {401,  {{5,  81,  77},  {3,  134, 133}, {3,  134, 134}}},
        // Heron32's last strip ends at cell 4825, past the ghosts: it reads zeros there.
        {4801, {{49, 98,  97},  {25, 193, 169}, {25, 193, 193}}},
    };
    // clang-format on
    for (const auto& row : rows) {
        for (int scheme = 0; scheme < 3; ++scheme) {
            SCOPED_TRACE(testing::Message() << row.n << " cells, scheme " << scheme);
            ExperimentState state = Filled(row.n);
            const ExperimentState before = state;
            TickArrays tick(state, Libraries[scheme]);
            AdvanceAllStrips(state, tick);

            const auto& cut = row.cuts[scheme];
            ASSERT_EQ(static_cast<int>(calls.size()), cut.Count);
            EXPECT_EQ(calls.back().Width, cut.Last);
            const auto as = [&](double v) { return scheme > 0 ? static_cast<float>(v) : v; };
            for (int strip = 0; strip < cut.Count; ++strip) {
                const Call& call = calls[static_cast<std::size_t>(strip)];
                EXPECT_EQ(call.Width, strip + 1 < cut.Count ? cut.Width : cut.Last);
                EXPECT_TRUE(call.RowsAgree);
                for (int x = -5; x <= call.Width + 6; ++x) {
                    const int i = strip * cut.Width + x;
                    const auto place = static_cast<std::size_t>(x + 5);
                    const bool known = i <= row.n + 7;
                    ASSERT_EQ(call.Rho[place], known ? as(before.Rho[i]) : 0.0) << i;
                    ASSERT_EQ(call.Edges[place], known ? as(before.X[i]) : 0.0) << i;
                }
            }
            for (int i = 1; i <= row.n; ++i) {
                ASSERT_EQ(tick.RhoOut[i], as(before.Rho[i]));
                ASSERT_EQ(tick.POut[i], as(before.P[i]));
                ASSERT_EQ(tick.UxOut[i], as(before.Ux[i]));
                ASSERT_EQ(state.UyNew[i], as(before.Uy[i]));
                ASSERT_EQ(state.FSmokeNew[i], before.FSmoke[i]);
                ASSERT_EQ(state.Rho[i], before.Rho[i]);
            }
            // One Courant number for all strips, and counters summed over them.
            EXPECT_EQ(tick.StepCourant, 0.25 * cut.Count);
            EXPECT_EQ(tick.OpCounters[1], (cut.Count - 1) * cut.Width + cut.Last);
            EXPECT_EQ(tick.OpCounters[8], cut.Count);
        }
    }
}

TEST(StripDriver, FillsTheMiddleRowAloneWhereNoOtherIsRead) {
    ExperimentState state = Filled(130);
    SchemeLibrary library = Libraries[0];
    library.ReadsMiddleRowOnly = true;
    TickArrays tick(state, library);
    kestrelReadsMiddleRow = true;
    AdvanceAllStrips(state, tick);
    kestrelReadsMiddleRow = false;
    for (int i = 1; i <= 130; ++i) ASSERT_EQ(tick.RhoOut[i], state.Rho[i]);
    EXPECT_EQ(calls.back().Rho, std::vector<double>(calls.back().Rho.size(), 0.0));
}

TEST(StripDriver, RepeatsMeteredCallsWithoutChangingTheResult) {
    const struct { int n, repeats; } rows[] = {{400, 201}, {1000, 81}, {5000, 17}, {5001, 16}};
    for (const auto& row : rows) {
        ExperimentState state = Filled(row.n);
        state.MeterOn = 1;
        TickArrays tick(state, Libraries[1]);
        tick.OpCounters.fill(1);
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
    // Five equal rows of density, pressure and velocity, seven of the transverse velocity and of
    // zeros; behind them the results.
    library.Plover = [](auto... arguments) {
        const auto given = std::tuple(arguments...);
        const int first = *std::get<43>(given);
        for (int x = first; x < first + *std::get<42>(given); ++x) {
            std::get<30>(given)[x] = std::get<1>(given)[x] + std::get<26>(given)[x];
            std::get<32>(given)[x] = std::get<13>(given)[x];
        }
    };
    TickArrays tick(state, library);
    AdvanceAllStrips(state, tick);
    EXPECT_EQ(state.FSmokeNew[5], 0.0);
    EXPECT_EQ(tick.RhoOut[30], static_cast<float>(state.Rho[30]));
    EXPECT_EQ(tick.UxOut[30], static_cast<float>(state.Ux[30]));
}
