#include "core/run/boundary_zones.h"

#include <gtest/gtest.h>

#include "problems.h"

namespace {

void ExpectCopy(const ExperimentState& state, int ghost, int cell, double sign) {
    EXPECT_EQ(state.Rho[ghost], state.Rho[cell]) << "cell " << ghost;
    EXPECT_EQ(state.P[ghost], state.P[cell]) << "cell " << ghost;
    EXPECT_EQ(state.Ux[ghost], sign * state.Ux[cell]) << "cell " << ghost;
    EXPECT_EQ(state.Uy[ghost], state.Uy[cell]) << "cell " << ghost;
    EXPECT_EQ(state.FSmoke[ghost], state.FSmoke[cell]) << "cell " << ghost;
}

// What six cells of different widths have beyond an end, from the end outwards: the cells that are
// copied, the sign of their Ux, and the outer edges.
struct Side {
    int Cells[6];
    double Sign;
    double Edges[6];
};

}  // namespace

TEST(FillBoundaryZones, CopiesCellsAndLaysEdgesByTheTypesOfBothEnds) {
    const double edges[] = {0.0, 0.1, 0.3, 0.45, 0.6, 0.8, 1.0};
    // clang-format off
    const Side wrapL  = {{6, 5, 4, 3, 2, 1},  1, {-0.2, -0.4, -0.55, -0.7, -0.9, -1.0}};
    const Side wrapR  = {{1, 2, 3, 4, 5, 6},  1, { 1.1,  1.3,  1.45,  1.6,  1.8,  2.0}};
    const Side wallL  = {{1, 2, 3, 4, 5, 6}, -1, {-0.1, -0.3, -0.45, -0.6, -0.8, -1.0}};
    const Side wallR  = {{6, 5, 4, 3, 2, 1}, -1, { 1.2,  1.4,  1.55,  1.7,  1.9,  2.0}};
    const Side levelL = {{1, 1, 1, 1, 1, 1},  1, {-0.1, -0.2, -0.3,  -0.4, -0.5, -0.6}};
    const Side levelR = {{6, 6, 6, 6, 6, 6},  1, { 1.2,  1.4,  1.6,   1.8,  2.0,  2.2}};
    const struct { int MnBdry, MxBdry; const Side &Left, &Right; } rows[] = {
        {4, 1, wrapL,  wrapR},   {4, 2, wrapL,  wrapR},
        {1, 1, wallL,  wallR},   {1, 2, wallL,  levelR},
        {2, 1, levelL, wallR},   {3, 7, levelL, levelR},
        {2, 4, levelL, levelR},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "types " << row.MnBdry << ", " << row.MxBdry);
        ExperimentState state = WavyProblem(6);
        for (int i = 1; i <= 7; ++i) state.X[i] = edges[i - 1];
        state.MnBdry = row.MnBdry;
        state.MxBdry = row.MxBdry;
        FillBoundaryZones(state);
        for (int k = 0; k < 6; ++k) {
            ExpectCopy(state, -k, row.Left.Cells[k], row.Left.Sign);
            ExpectCopy(state, 7 + k, row.Right.Cells[k], row.Right.Sign);
            EXPECT_NEAR(state.X[-k], row.Left.Edges[k], 1e-15);
            EXPECT_NEAR(state.X[8 + k], row.Right.Edges[k], 1e-15);
        }
    }
}

TEST(FirstBoundaryFill, LooksOnlyAtTheMode) {
    ExperimentState state = WavyProblem(10);
    state.MnBdry = state.MxBdry = 2;
    FirstBoundaryFill(state);
    ExpectCopy(state, 0, 1, -1.0);
    ExpectCopy(state, 11, 10, -1.0);
    state.SoundWaveMode = 1;
    FirstBoundaryFill(state);
    ExpectCopy(state, 0, 10, 1.0);
    ExpectCopy(state, 11, 1, 1.0);
}
