#include "verify/measurements.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "verify/peers/classic_ppm.h"
#include "verify/peers/weno_z.h"

namespace {

ExperimentState StartOf(std::size_t problem, int cells) {
    return problem == BlastWaves ? BlastProblem(cells)
                                 : TestProblem(static_cast<int>(problem) + 1, cells);
}

double StopTime(std::size_t problem) {
    return problem == BlastWaves ? BlastStopTime : StopTimeOfTest(static_cast<int>(problem) + 1);
}

// At the time of the state.
ExactFields ExactEnd(const ExperimentState& state, std::size_t problem,
                     const std::string& referenceFile) {
    return problem == BlastWaves ? BlastReference(referenceFile, state.NGridCells)
                                 : ExactFieldsNow(state);
}

// For the classic schemes, which follow the Courant number alone.
FamilyProblem ProblemForPeers(const ExperimentState& start, std::size_t problem) {
    const int n = start.NGridCells;
    FamilyProblem peers;
    peers.Time = StopTime(problem);
    peers.End = problem == BlastWaves ? Ends::Walls : Ends::Open;
    peers.Start.Edges.assign(start.X.At(1), start.X.At(1) + n + 1);
    peers.Start.Rho.assign(start.Rho.At(1), start.Rho.At(1) + n);
    peers.Start.P.assign(start.P.At(1), start.P.At(1) + n);
    peers.Start.Ux.assign(start.Ux.At(1), start.Ux.At(1) + n);
    return peers;
}

}  // namespace

std::string ProblemName(std::size_t problem) {
    return problem == BlastWaves ? "Blast waves" : "Test " + std::to_string(problem + 1);
}

bool HasSolution(std::size_t problem, int cells) {
    return problem != BlastWaves || 400 % cells == 0;
}

Measured Measure(const SchemeLibrary& library, std::size_t problem, int cells,
                 const std::string& referenceFile) {
    Measured found;
    found.State = StartOf(problem, cells);
    ExperimentState& state = found.State;
    found.Counts = RunTo(state, library, StopTime(problem));
    found.Exact = ExactEnd(state, problem, referenceFile);
    found.Rho = CompareFields(state.Rho, found.Exact.Rho, state.X, cells);
    found.P = CompareFields(state.P, found.Exact.P, state.X, cells);
    found.Ux = CompareFields(state.Ux, found.Exact.Ux, state.X, cells);
    found.Uy = CompareFields(state.Uy, found.Exact.Uy, state.X, cells);
    return found;
}

double SoundWaveError(const SchemeLibrary& library, std::size_t wave, int cells) {
    const SimpleWave sound = SoundWave(0.01, wave == 0 ? 0.0 : -1.0);
    ExperimentState state = SoundWaveProblem(sound, cells);
    RunTo(state, library, 1.0);
    const ExactFields exact = AveragesOf(sound, state, 1.0);
    return CompareFields(state.Rho, exact.Rho, state.X, cells).Mean;
}

double BestPeerError(std::size_t problem, int cells, const std::string& referenceFile) {
    ExperimentState state = StartOf(problem, cells);
    const FamilyProblem start = ProblemForPeers(state, problem);
    state.Time = StopTime(problem);
    const ExactFields exact = ExactEnd(state, problem, referenceFile);
    const ClassicPpm plain("PPM", false, false);
    const ClassicPpm flattened("PPM-F", true, false);
    const ClassicPpm steepened("PPM-FS", true, true);
    const WenoZ weno;
    double best = INFINITY;
    for (const Peer* peer : std::vector<const Peer*>{&plain, &flattened, &steepened, &weno}) {
        const GasCells end = RunPeer(*peer, start);
        std::copy(end.Rho.begin(), end.Rho.end(), state.Rho.At(1));
        const double error = CompareFields(state.Rho, exact.Rho, state.X, cells).Mean;
        if (error < best) best = error;  // never for a run that broke down
    }
    return best;
}
