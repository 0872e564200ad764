// Shock tubes: two uniform states with one jump between them.
#pragma once

#include <array>

struct ExperimentState;

struct RiemannProblem {
    double RhoL, PL, UxL, UyL;  // left of the jump
    double RhoR, PR, UxR, UyR;  // right of it
    double XL, XJump, XR;       // ends of the domain and the jump between them
    double TStop;               // end of the run
};

// The problems of the buttons Test 1 to Test 8.
// clang-format off
constexpr std::array<RiemannProblem, 8> RiemannTests{{
    //  RhoL       PL       UxL        UyL   RhoR      PR        UxR        UyR   XL   XJump XR   TStop
    {1.0,       1.0,     0.75,      0.0,  0.125,    0.1,      0.0,       0.0,  0.0, 0.3,  1.0, 0.2},
    {1.0,       1.0,     0.75,      1.0,  0.125,    0.1,      0.0,      -8.0,  0.0, 0.3,  1.0, 0.2},
    {1.0,       0.4,    -2.0,       0.0,  1.0,      0.4,      2.0,       0.0,  0.0, 0.5,  1.0, 0.15},
    {1.0,       1e-06,   1.0,       0.0,  1.0,      1e-06,   -1.0,       0.0,  0.0, 0.5,  1.0, 1.0},
    {1.0,       1000.0, -19.59745,  0.0,  1.0,      0.01,    -19.59745,  0.0,  0.0, 0.8,  1.0, 0.012},
    {5.99924,   460.894, 19.5975,   0.0,  5.99242,  46.095,  -6.19633,   0.0,  0.0, 0.4,  1.0, 0.035},
    {1.4,       1.0,     0.1,       0.0,  1.0,      1.0,      0.1,       0.0,  0.0, 0.5,  1.0, 2.0},
    {0.1261192, 782.929, 8.904703,  0.0,  6.591493, 3.154487, 2.265421,  0.0,  0.0, 0.8,  1.0, 0.0078},
}};
// clang-format on

// Makes the problem the present one on a fresh grid of NGridCells cells: arrays, control points,
// fields, axes, smoke, stored state 0 and the first DTime (still bounded by the PlotInterval of the
// former problem). MSelected ends at the last cell of the left state, the selected values at the
// right state. Clock, run flag and store counters stay, so that a test pressed during a run runs
// on.
void BuildRiemannProblem(ExperimentState& state, const RiemannProblem& problem);

// The problem's clock: PeriodTime, TStop and the plot interval.
void SetRiemannClock(ExperimentState& state, double tStop);
