#include "core/setup/control_points.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "core/setup/point_mapping.h"
#include "problems.h"

namespace {

ExperimentState EmptyList(int n) {
    ExperimentState state = UniformProblem(n, 1.0, 1.0, 0.0);
    ResizeControlPointLists(state);
    state.MSelList[1] = n + 1;
    return state;
}

std::vector<int> Cells(const ExperimentState& state) {
    return {state.MSelList.At(0), state.MSelList.At(0) + state.NSelected + 2};
}

}  // namespace

TEST(ControlPoints, StartAListWithTheEndCells) {
    const std::pair<int, std::vector<int>> rows[] = {
        {200, {0, 1, 200, 400, 401}}, {1, {0, 1, 400, 401}}, {400, {0, 1, 400, 401}}};
    for (const auto& [m, cells] : rows) {
        ExperimentState state = EmptyList(400);
        InsertControlPoint(state, m, {2.0, 3.0, -1.0});
        EXPECT_EQ(Cells(state), cells);
        for (int i = 0; i <= 401; ++i) {
            ASSERT_TRUE(state.Rho[i] == 2.0 && state.P[i] == 3.0 && state.Ux[i] == -1.0) << i;
            ASSERT_TRUE(state.Uy[i] == 0.0 && state.FSmoke[i] == 0.0) << i;
        }
    }
}

TEST(ControlPoints, DrawRampsByRepeatedAddition) {
    ExperimentState state = EmptyList(11);
    InsertControlPoint(state, 1, {1.0, 1.0, 0.0});
    InsertControlPoint(state, 6, {2.0, 1.0, 10.0});
    double up = 1.0;
    double down = 2.0;
    for (int i = 1; i <= 5; ++i) {
        EXPECT_EQ(state.Rho[i], up) << i;
        EXPECT_EQ(state.Rho[5 + i], down) << i;
        up = (2.0 - 1.0) * (1.0 / 5) + up;
        down = down - (2.0 - 1.0) * (1.0 / 5);
    }
    EXPECT_EQ(state.Ux[4], 10.0 * (1.0 / 5) + (10.0 * (1.0 / 5) + 10.0 * (1.0 / 5)));
    RemoveControlPoint(state, FindControlPoint(state, 6));
    EXPECT_EQ(Cells(state), (std::vector<int>{0, 1, 11, 12}));
    for (int i = 0; i <= 12; ++i) EXPECT_EQ(state.Rho[i], 1.0) << i;
}

// The position tells a later grid on which side of the face the point belongs.
TEST(ControlPoints, RememberTheirSideOfAJump) {
    ExperimentState state = EmptyList(400);
    for (const int m : {1, 100, 101}) InsertControlPoint(state, m, {m > 100 ? 2.0 : 1.0, 1.0, 0.0});
    const double positions[] = {-1e-07, 1e-07, state.X[101] - 1e-07, state.X[101] + 1e-07,
                                state.X[401] - 1e-07};
    for (int k = 0; k < 5; ++k) EXPECT_EQ(state.XSelList[k], positions[k]) << k;
    EXPECT_EQ(state.Rho[100], 1.0);
    EXPECT_EQ(state.Rho[101], 2.0);
}

TEST(ControlPoints, CarryAnEndPointToTheBoundingCell) {
    ExperimentState state = EmptyList(20);
    InsertControlPoint(state, 7, {1.0, 1.0, 0.0});
    for (const int end : {1, 20}) {
        const int beyond = end == 1 ? 0 : 21;
        const int entry = end == 1 ? 0 : state.NSelected + 1;
        const double position = state.XSelList[entry];
        RemoveControlPoint(state, FindControlPoint(state, end));
        InsertControlPoint(state, end, {4.0, 5.0, 6.0});
        EXPECT_EQ(state.Rho[beyond], 4.0);
        EXPECT_EQ(state.Ux[beyond], 6.0);
        EXPECT_EQ(state.PSelList[entry], 5.0);
        EXPECT_EQ(state.MSelList[entry], beyond);
        EXPECT_EQ(state.XSelList[entry], position);
    }
}

TEST(ControlPoints, StayInOrderWhateverIsInsertedAndRemoved) {
    std::mt19937 random(11);
    for (const int n : {6, 30}) {
        ExperimentState state = EmptyList(n);
        for (int action = 0; action < 3000; ++action) {
            const int m = 1 + static_cast<int>(random() % static_cast<unsigned>(n));
            if (const int k = FindControlPoint(state, m); k > 0) {
                RemoveControlPoint(state, k);
            } else {
                InsertControlPoint(state, m, {1.0 + 0.001 * action, 1.0, 0.0});
            }
            ASSERT_TRUE(PointsAreInOrder(state));
        }
    }
}

// Random positions, many of them in one coarse cell, on every grid that has room.
TEST(MapControlPoints, KeepsTheOrderInEveryCase) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int round = 0; round < 500; ++round) {
        const int n = 6 + static_cast<int>(random() % 20);
        ExperimentState state = EmptyList(n);
        state.NSelected = static_cast<int>(random() % static_cast<unsigned>(n + 1));
        const double low = unit(random);
        for (int k = 1; k <= state.NSelected; ++k) {
            state.XSelList[k] = low + (1.0 - low) * unit(random) * 0.2;
            state.MSelList[k] = k + 40;  // of a larger grid; counts for short lists only
        }
        MapControlPoints(state);
        ASSERT_TRUE(PointsAreInOrder(state));
    }
}
