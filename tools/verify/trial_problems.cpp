#include "verify/trial_problems.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "core/model/boundary_types.h"
#include "core/setup/grid.h"
#include "core/setup/problems.h"
#include "core/setup/riemann_problem.h"

namespace {

constexpr int ReferenceCells = 400;

// The default problem, the blast waves, on a grid of this size.
ExperimentState DefaultProblem(SetUpBoxes& boxes, int cells) {
    ExperimentState state;
    state.NGridCells = cells;
    SetUpDefaultProblem(state, boxes);
    return state;
}

OffsetArray<double> Zeros(int cells) {
    return {1, cells};
}

}  // namespace

ExperimentState TubeProblem(const GasState& left, const GasState& right, double jump,
                            double stopTime, int cells) {
    SetUpBoxes boxes;
    ExperimentState state = DefaultProblem(boxes, cells);
    state.MnBdry = state.MxBdry = ContinuationBoundary;
    BuildRiemannProblem(state, {left.Rho, left.P, left.Ux, left.Uy, right.Rho, right.P, right.Ux,
                                right.Uy, 0.0, jump, 1.0, stopTime});
    SetRiemannClock(state, stopTime);
    state.DTime = std::min(state.DTime, state.PlotInterval);
    return state;
}

ExperimentState TestProblem(int number, int cells) {
    SetUpBoxes boxes;
    ExperimentState state = DefaultProblem(boxes, cells);
    SetUpTest(state, boxes, number);
    return state;
}

ExperimentState BlastProblem(int cells) {
    SetUpBoxes boxes;
    return DefaultProblem(boxes, cells);
}

double StopTimeOfTest(int number) {
    return RiemannTests[static_cast<std::size_t>(number - 1)].TStop;
}

ExactFields ExactFieldsNow(const ExperimentState& state) {
    const ExactSolution solution = FindExactSolution(state);
    if (!solution) throw std::runtime_error(solution.WhyNot);
    return ExactFieldsOf(solution, state);
}

ExactFields BlastReference(const std::string& file, int cells) {
    std::ifstream in(file);
    std::string line;
    if (!std::getline(in, line)) throw std::runtime_error("cannot read " + file);
    ExactFields fields;
    for (OffsetArray<double>* field :
         {&fields.Rho, &fields.P, &fields.Ux, &fields.Uy, &fields.Entropy}) {
        *field = Zeros(cells);
    }
    const int share = ReferenceCells / cells;
    for (int k = 0; k < ReferenceCells && std::getline(in, line); ++k) {
        std::istringstream columns(line);
        double x = 0.0, rho = 0.0, p = 0.0, u = 0.0;
        char comma = 0;
        columns >> x >> comma >> rho >> comma >> p >> comma >> u;
        const int i = k / share + 1;
        fields.Rho[i] += rho / share;
        fields.P[i] += p / share;
        fields.Ux[i] += u / share;
    }
    return fields;
}

SimpleWave SoundWave(double amplitude, double velocity) {
    SimpleWave wave;
    wave.Amplitude = amplitude;
    wave.U0 = velocity;
    return wave;
}

ExactFields AveragesOf(const SimpleWave& wave, const ExperimentState& state, double time) {
    return AverageOverCells([&](double x) { return wave.At(x, time); }, {}, state.Gamma, state.X,
                            state.NGridCells);
}

ExperimentState SoundWaveProblem(const SimpleWave& wave, int cells) {
    SetUpBoxes boxes;
    ExperimentState state = DefaultProblem(boxes, cells);
    SoundWaves waves;
    waves.RPlusAmp = wave.Amplitude;
    waves.U0 = wave.U0;
    if (!SetUpSoundWave(state, waves)) throw std::runtime_error("no such sound wave");
    const ExactFields exact = AveragesOf(wave, state, 0.0);
    for (int i = 1; i <= cells; ++i) {
        state.Rho[i] = exact.Rho[i];
        state.P[i] = exact.P[i];
        state.Ux[i] = exact.Ux[i];
    }
    return state;
}

ExperimentState EmptyExperiment(int cells) {
    ExperimentState state;
    state.NGridCells = cells;
    AllocateFields(state);
    LayGrid(state, 0.0, 1.0);
    state.MnBdry = ContinuationBoundary;
    state.MxBdry = ContinuationBoundary;
    return state;
}
