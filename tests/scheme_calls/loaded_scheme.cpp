#include "scheme_calls/loaded_scheme.h"

#include <algorithm>

#include "core/model/experiment_state.h"
#include "core/run/boundary_zones.h"
#include "core/run/tick_arrays.h"
#include "scheme_calls/strip_call.h"
#include "verify/trial_problems.h"
#include "verify/trial_run.h"

namespace {

template <typename Float>
StepReport AdvanceStrips(SchemeKind kind, void* entry, const Flow& flow,
                         const SchemeConstants& constants, double timeStep, Flow& next,
                         int widest) {
    const int strips = (flow.N + widest - 1) / widest;
    const int fullWidth = (flow.N + strips - 1) / strips;
    const std::array<std::vector<double>*, 5> to = {&next.Rho, &next.P, &next.Ux, &next.Uy,
                                                    &next.Smoke};
    StepReport report;
    Float courant = 0;
    for (int offset = 0; offset < flow.N; offset += fullWidth) {
        const int real = std::min(fullWidth, flow.N - offset);
        PlainStorage storage;
        StripCall<Float> call(kind, kind == SchemeKind::Heron32 ? fullWidth : real, storage);
        call.Load(flow, offset);
        call.SetNumbers(constants, timeStep);
        call.Courant = courant;
        call.Ops = report.Ops;
        call.Run(entry);
        courant = call.Courant;
        report.Ops = call.Ops;
        for (std::size_t k = 0; k < to.size(); ++k)
            for (int cell = 1; cell <= real; ++cell)
                (*to[k])[next.At(offset + cell)] =
                    static_cast<double>(call.Results[k][cell + Flow::B - 1]);
    }
    report.Courant = static_cast<double>(courant);
    return report;
}

}  // namespace

Flow::Flow(int cells)
    : N(cells),
      Edges(static_cast<std::size_t>(cells + 2 * B + 1)),
      Rho(Edges.size() - 1),
      P(Rho.size()),
      Ux(Rho.size()),
      Uy(Rho.size()),
      Smoke(Rho.size()) {}

namespace {

// A field of the flow and of the experiment.
struct FieldPair {
    std::vector<double> Flow::*Mine;
    OffsetArray<double> ExperimentState::*Theirs;
};
constexpr std::array<FieldPair, 6> FieldPairs = {{{&Flow::Edges, &ExperimentState::X},
                                                  {&Flow::Rho, &ExperimentState::Rho},
                                                  {&Flow::P, &ExperimentState::P},
                                                  {&Flow::Ux, &ExperimentState::Ux},
                                                  {&Flow::Uy, &ExperimentState::Uy},
                                                  {&Flow::Smoke, &ExperimentState::FSmoke}}};

}  // namespace

Flow UniformGrid(int cells) {
    return FlowOf(EmptyExperiment(cells));
}

Flow TwoStates(const FlowState& left, const FlowState& right, int cells) {
    Flow flow = UniformGrid(cells);
    for (int cell = 1; cell <= cells; ++cell) {
        const FlowState& here = 2 * cell <= cells ? left : right;
        const std::size_t i = flow.At(cell);
        flow.Rho[i] = here[0];
        flow.P[i] = here[1];
        flow.Ux[i] = here[2];
        flow.Uy[i] = here[3];
    }
    return flow;
}

Flow FlowOf(const ExperimentState& state) {
    Flow flow(state.NGridCells);
    for (const FieldPair& pair : FieldPairs) {
        std::vector<double>& mine = flow.*pair.Mine;
        std::copy_n((state.*pair.Theirs).At(1 - Flow::B), mine.size(), mine.begin());
    }
    return flow;
}

void FillNeighbours(Flow& flow, int boundary) {
    ExperimentState state = EmptyExperiment(flow.N);
    for (const FieldPair& pair : FieldPairs) {
        const std::vector<double>& mine = flow.*pair.Mine;
        std::copy(mine.begin(), mine.end(), (state.*pair.Theirs).At(1 - Flow::B));
    }
    state.MnBdry = state.MxBdry = boundary;
    FillBoundaryZones(state);
    flow = FlowOf(state);
}

LoadedScheme::LoadedScheme(SchemeKind kind, const std::string& folder)
    : kind_(kind), library_(LoadOrThrow(SchemeName(kind), folder)) {}

void* LoadedScheme::Entry() const {
    switch (kind_) {
        case SchemeKind::Kestrel:
            return reinterpret_cast<void*>(library_.Kestrel64);
        case SchemeKind::Kestrel32:
            return reinterpret_cast<void*>(library_.Kestrel32);
        case SchemeKind::Heron32:
            return reinterpret_cast<void*>(library_.Heron32);
        case SchemeKind::Plover:
            return reinterpret_cast<void*>(library_.Plover);
    }
    return nullptr;
}

int LoadedScheme::WidestStrip() const {
    return IsDouble(kind_) ? WidestStrip64 : WidestStrip32;
}

StepReport LoadedScheme::Advance(const Flow& flow, const SchemeConstants& constants,
                                 double timeStep, Flow& next, int stripWidth) const {
    const int widest = stripWidth > 0 ? stripWidth : WidestStrip();
    return IsDouble(kind_)
               ? AdvanceStrips<double>(kind_, Entry(), flow, constants, timeStep, next, widest)
               : AdvanceStrips<float>(kind_, Entry(), flow, constants, timeStep, next, widest);
}
