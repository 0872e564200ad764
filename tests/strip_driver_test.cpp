#include "core/run/strip_driver.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

#include "core/run/boundary_zones.h"
#include "core/run/tick_arrays.h"
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

// Gives back the state it was given, cell by cell. What Kestrel is given behind the transverse
// velocity are zeros in 25 rows, what Heron32 is given is the transverse velocity once more.
template <typename Float, typename... Arguments>
void GiveBack(Arguments... arguments) {
    const std::tuple given(arguments...);
    constexpr std::size_t last = sizeof...(Arguments) - 1;
    constexpr bool isHeron = last < 25;
    const int width = *std::get<last - 2>(given);
    const int boundary = *std::get<last - 1>(given);
    const int length = width + 2 * boundary;
    const Float* rho = std::get<1>(given);
    Record(std::get<0>(given), rho, isHeron || kestrelReadsMiddleRow ? 1 : 25, width, boundary);
    for (int x = boundary; x < boundary + width; ++x) {
        const int read = kestrelReadsMiddleRow ? 12 * length + x : x;
        std::get<7>(given)[x] = rho[read];
        std::get<8>(given)[x] = std::get<2>(given)[read];
        std::get<9>(given)[x] = std::get<3>(given)[read];
        const Float uy = std::get<4>(given)[read];
        const Float behind = std::get<5>(given)[read];
        std::get<10>(given)[x] = isHeron ? (uy + behind) / 2 : uy + behind;
        std::get<11>(given)[x] = Float(7);
        std::get<12>(given)[x] = std::get<6>(given)[x];
    }
    *std::get<14>(given) += Float(0.25);
    std::get<last>(given)[0] += width;
    std::get<last>(given)[7] += 1;
}

const SchemeLibrary Libraries[] = {
    {.Kestrel64 = GiveBack<double>, .Kestrel32 = {}, .Heron32 = {}, .Plover = {}},
    {.Kestrel64 = {}, .Kestrel32 = GiveBack<float>, .Heron32 = {}, .Plover = {}},
    {.Kestrel64 = {}, .Kestrel32 = {}, .Heron32 = GiveBack<float>, .Plover = {}}};

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
            EXPECT_EQ(tick.RhoOut[row.n + 1], 0.0) << "no cell beyond the grid has a result";
            // One Courant number for all strips, and counters summed over them.
            EXPECT_EQ(tick.StepCourant, 0.25 * cut.Count);
            EXPECT_EQ(tick.OpCounters[1], (cut.Count - 1) * cut.Width + cut.Last);
            EXPECT_EQ(tick.OpCounters[8], cut.Count);
        }
    }
}

TEST(StripDriver, NoticesACellLeftOutInAnyAttemptWhateverElseWasWritten) {
    ExperimentState state = Filled(399);  // strips of 200 and 199 cells
    static int leftOut;
    SchemeLibrary library;
    // Writes all the room that it has, but for one cell.
    library.Kestrel32 = [](auto... arguments) {
        const auto given = std::tuple(arguments...);
        const int first = *std::get<24>(given);
        for (float* result : {std::get<7>(given), std::get<8>(given), std::get<9>(given),
                              std::get<10>(given), std::get<12>(given)}) {
            for (int x = 1 - first; x <= *std::get<23>(given) + first + 1; ++x) {
                if (x != leftOut) result[x + first - 1] = 1.0F;
            }
        }
    };
    TickArrays tick(state, library);
    for (const int cell : {0, 200, 0, 1, 199}) {
        leftOut = cell;
        AdvanceAllStrips(state, tick);
        EXPECT_EQ(tick.ResultsAreFinite, cell == 0) << cell;
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
