#include "integration/boundary_zones.h"

#include <gtest/gtest.h>

#include "problems.h"

namespace {

enum class Side { Periodic, Reflecting, Continuation };

// What the ghost cell k cells beyond an end must hold: the cell it copies and the sign of Ux.
struct Source {
    int Cell;
    double Sign;
};

Source LeftSource(Side side, int k, int n) {
    if (side == Side::Periodic) return {n + 1 - k, 1.0};
    return side == Side::Reflecting ? Source{k, -1.0} : Source{1, 1.0};
}

Source RightSource(Side side, int k, int n) {
    if (side == Side::Periodic) return {k, 1.0};
    return side == Side::Reflecting ? Source{n + 1 - k, -1.0} : Source{n, 1.0};
}

void ExpectCopy(const ExperimentState& state, int ghost, Source source) {
    EXPECT_EQ(state.Rho[ghost], state.Rho[source.Cell]) << "cell " << ghost;
    EXPECT_EQ(state.P[ghost], state.P[source.Cell]) << "cell " << ghost;
    EXPECT_EQ(state.Ux[ghost], source.Sign * state.Ux[source.Cell]) << "cell " << ghost;
    EXPECT_EQ(state.Uy[ghost], state.Uy[source.Cell]) << "cell " << ghost;
    EXPECT_EQ(state.FSmoke[ghost], state.FSmoke[source.Cell]) << "cell " << ghost;
}

}  // namespace

TEST(FillBoundaryZones, CopiesByTheTypesOfBothEnds) {
    const struct {
        int MnBdry, MxBdry;
        Side Left, Right;
    } rows[] = {
        {4, 1, Side::Periodic, Side::Periodic},
        {4, 2, Side::Periodic, Side::Periodic},
        {1, 1, Side::Reflecting, Side::Reflecting},
        {1, 2, Side::Reflecting, Side::Continuation},
        {2, 1, Side::Continuation, Side::Reflecting},
        {3, 7, Side::Continuation, Side::Continuation},
        {2, 4, Side::Continuation, Side::Continuation},
    };
    for (const int n : {6, 17}) {
        for (const auto& row : rows) {
            SCOPED_TRACE(testing::Message() << "types " << row.MnBdry << ", " << row.MxBdry);
            ExperimentState state = WavyProblem(n);
            state.MnBdry = row.MnBdry;
            state.MxBdry = row.MxBdry;
            FillBoundaryZones(state);
            for (int k = 1; k <= state.NBDY; ++k) {
                ExpectCopy(state, 1 - k, LeftSource(row.Left, k, n));
                ExpectCopy(state, n + k, RightSource(row.Right, k, n));
            }
        }
    }
}

// Ghost edges mirror, step by the width of the end cell, or repeat the other end.
TEST(FillBoundaryZones, ExtendsTheEdges) {
    const double edges[] = {0.0, 0.1, 0.3, 0.45, 0.6, 0.8, 1.0};  // 6 cells of different widths
    const struct {
        int Type;
        double Left[6];   // X[0], X[-1] ... X[-5]
        double Right[6];  // X[8] ... X[13]
    } rows[] = {
        {1, {-0.1, -0.3, -0.45, -0.6, -0.8, -1.0}, {1.2, 1.4, 1.55, 1.7, 1.9, 2.0}},
        {2, {-0.1, -0.2, -0.3, -0.4, -0.5, -0.6}, {1.2, 1.4, 1.6, 1.8, 2.0, 2.2}},
        {4, {-0.2, -0.4, -0.55, -0.7, -0.9, -1.0}, {1.1, 1.3, 1.45, 1.6, 1.8, 2.0}},
    };
    for (const auto& row : rows) {
        ExperimentState state = WavyProblem(6);
        for (int i = 1; i <= 7; ++i) state.X[i] = edges[i - 1];
        state.MnBdry = state.MxBdry = row.Type;
        FillBoundaryZones(state);
        for (int k = 0; k < 6; ++k) {
            EXPECT_NEAR(state.X[-k], row.Left[k], 1e-15) << "type " << row.Type;
            EXPECT_NEAR(state.X[8 + k], row.Right[k], 1e-15) << "type " << row.Type;
        }
    }
}

TEST(FirstBoundaryFill, LooksOnlyAtTheMode) {
    ExperimentState state = WavyProblem(10);
    state.MnBdry = state.MxBdry = 2;
    const double outerEdge = state.X[0] = -7.0;
    FirstBoundaryFill(state);
    ExpectCopy(state, 0, {1, -1.0});
    ExpectCopy(state, 11, {10, -1.0});
    state.SoundWaveMode = 1;
    FirstBoundaryFill(state);
    ExpectCopy(state, 0, {10, 1.0});
    ExpectCopy(state, 11, {1, 1.0});
    EXPECT_EQ(state.X[0], outerEdge);
}
