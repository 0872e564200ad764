// What every scheme library keeps to, whatever its numerics: written once, run for all four.
#include <sys/mman.h>

#include <numbers>

#include "core/model/boundary_types.h"
#include "scheme_calls/strip_call.h"
#include "scheme_tests.h"

namespace {

constexpr int B = Flow::B;

const std::array<std::vector<double> Flow::*, 5> Fields = {&Flow::Rho, &Flow::P, &Flow::Ux,
                                                           &Flow::Uy, &Flow::Smoke};

std::size_t FieldsOf(SchemeKind kind) {
    return CarriesSmoke(kind) ? Fields.size() : Fields.size() - 1;
}

class SchemeContract : public SchemeTest {
protected:
    void ExpectSameBits(const Flow& a, const Flow& b) const {
        for (std::size_t field = 0; field < FieldsOf(GetParam()); ++field)
            for (int cell = 1; cell <= a.N; ++cell)
                ASSERT_EQ((a.*Fields[field])[a.At(cell)], (b.*Fields[field])[b.At(cell)])
                    << "field " << field << ", cell " << cell;
    }

    SchemeConstants constants_;
};

INSTANTIATE_TEST_SUITE_P(AllSchemes, SchemeContract, testing::ValuesIn(AllSchemes), NameOfRow);

// Smooth waves with jumps, all kinds of waves at once; whole wavelengths, so that ends can join.
Flow RoughFlow(int cells) {
    Flow flow = UniformGrid(cells);
    for (int cell = 1; cell <= cells; ++cell) {
        const std::size_t i = flow.At(cell);
        const double x = 2.0 * std::numbers::pi * (cell - 0.5) / cells;
        flow.Rho[i] = 1.5 + std::sin(x) + (cell % 37 < 9 ? 2.0 : 0.0);
        flow.P[i] = 2.0 + std::cos(3.0 * x) + (cell % 53 < 20 ? 4.0 : 0.0);
        flow.Ux[i] = 0.7 * std::sin(2.0 * x) + (cell % 41 < 15 ? 0.5 : -0.3);
        flow.Uy[i] = std::cos(x);
        flow.Smoke[i] = cell % 29 < 10 ? 1.0 : 0.0;
    }
    FillNeighbours(flow, PeriodicBoundary);
    return flow;
}

// Arrays that end, or begin, at a page that must not be touched.
class GuardedStorage : public ArrayStorage {
public:
    explicit GuardedStorage(bool guardBehind) : guardBehind_(guardBehind) {}
    ~GuardedStorage() override {
        for (const auto& [address, bytes] : maps_) munmap(address, bytes);
    }
    GuardedStorage(const GuardedStorage&) = delete;
    GuardedStorage& operator=(const GuardedStorage&) = delete;

    void* Take(std::size_t bytes) override {
        constexpr std::size_t page = 4096;
        const std::size_t inner = (bytes + page - 1) / page * page;
        void* map = mmap(nullptr, inner + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        maps_.emplace_back(map, inner + 2 * page);
        char* first = static_cast<char*>(map) + page;
        mprotect(first, inner, PROT_READ | PROT_WRITE);
        return guardBehind_ ? first + inner - bytes : first;
    }

private:
    bool guardBehind_;
    std::vector<std::pair<void*, std::size_t>> maps_;
};

// Direct calls with guard values in and around everything that the scheme must leave alone; a touch
// of what lies beyond an array ends the program.
template <typename Float>
void ExpectInputsAndGuardsKept(SchemeKind kind, void* entry, int width, bool guardBehind) {
    GuardedStorage storage(guardBehind);
    StripCall<Float> call(kind, width, storage);
    const Flow flow = RoughFlow(200);
    call.Load(flow, 0);
    call.SetNumbers({}, StepAt(flow, 0.8));
    const Float guard = Float(-777);
    for (Float* result : call.Results) std::fill_n(result, call.Cells() + 1, guard);
    const auto copyOf = [](const Float* from, std::size_t count) {
        return std::vector<Float>(from, from + count);
    };
    const auto inputs = [&] {
        std::vector<std::vector<Float>> all = {copyOf(call.Edges, call.Cells() + 1),
                                               copyOf(call.Numbers.data(), call.Numbers.size())};
        for (const Float* line : call.Lines) all.push_back(copyOf(line, call.Cells()));
        for (const Float* rows : call.Rows)
            if (rows != nullptr) all.push_back(copyOf(rows, 25 * call.Cells()));
        return all;
    };
    const auto before = inputs();

    call.Run(entry);
    const auto first = copyOf(call.Results[0], call.Cells());
    const Float courant = call.Courant;
    const auto ops = call.Ops;
    call.Run(entry);

    EXPECT_EQ(inputs(), before);
    EXPECT_EQ(copyOf(call.Results[0], call.Cells()), first);
    EXPECT_EQ(call.Courant, courant);
    for (std::size_t slot = 0; slot < ops.size(); ++slot)
        EXPECT_EQ(call.Ops[slot], 2 * ops[slot]) << "counter " << slot + 1;
    EXPECT_GT(ops[0], 0);
    for (std::size_t field = 0; field < FieldsOf(kind); ++field)
        for (int cell = 1; cell <= width; ++cell)
            EXPECT_NE(call.Results[field][cell + B - 1], guard) << "cell " << cell;
    for (std::size_t i = 0; !CarriesSmoke(kind) && i <= call.Cells(); ++i)
        EXPECT_EQ(call.Results[4][i], guard);
}

TEST_P(SchemeContract, KeepsInputsAndRepeatsItself) {
    for (const bool guardBehind : {false, true}) {
        for (const int width : {1, 6, 50, 100, 199, 200}) {
            SCOPED_TRACE(width);
            if (IsDouble(GetParam()))
                ExpectInputsAndGuardsKept<double>(GetParam(), scheme_.Entry(), width, guardBehind);
            else
                ExpectInputsAndGuardsKept<float>(GetParam(), scheme_.Entry(), width, guardBehind);
        }
    }
}

TEST_P(SchemeContract, FoldsATruthfulCourantNumberAsAMaximum) {
    const Flow flow = RoughFlow(90);
    Flow next = flow;
    for (const double courant : {1e-9, 0.3, 0.85, 0.999, 1.5}) {
        const StepReport report = scheme_.Advance(flow, constants_, StepAt(flow, courant), next);
        EXPECT_NEAR(report.Courant, courant, 1e-5 * courant);
    }
}

TEST_P(SchemeContract, LeavesAUniformFlowUniformToTheBit) {
    for (const double velocity : {0.0, 0.3, -17.0, 1000.0}) {
        Flow flow = UniformGrid(64);
        // As floats have them, but with digits to round.
        const float values[] = {1.1F, 0.7F, static_cast<float>(velocity), -2.3F, 0.4F};
        for (std::size_t field = 0; field < Fields.size(); ++field)
            std::ranges::fill(flow.*Fields[field], static_cast<double>(values[field]));
        FillNeighbours(flow, PeriodicBoundary);
        Flow next = flow;
        scheme_.Advance(flow, constants_, StepAt(flow, 0.85), next);
        ExpectSameBits(next, flow);
    }
}

TEST_P(SchemeContract, DoesNotShowHowTheGridIsCut) {
    Flow flow = RoughFlow(400);
    // Gas that is even and moves, and carries what is not.
    for (int cell = 130; cell <= 330; ++cell) {
        const std::size_t i = flow.At(cell);
        flow.Rho[i] = 1.3;
        flow.P[i] = 0.7;
        flow.Ux[i] = 0.37;
    }
    const double step = StepAt(flow, 0.85);
    Flow whole = flow;
    scheme_.Advance(flow, constants_, step, whole, 400);
    for (const int width : {200, 100, 134, 50, 7, 1}) {
        Flow cut = flow;
        const StepReport report = scheme_.Advance(flow, constants_, step, cut, width);
        ExpectSameBits(cut, whole);
        EXPECT_NEAR(report.Courant, 0.85, 1e-5) << "width " << width;
    }
}

// Of mass, momentum along and across the grid, energy without that of the motion across, and smoke.
std::array<double, 5> TotalsOf(const Flow& flow) {
    std::array<double, 5> sums = {};
    for (int cell = 1; cell <= flow.N; ++cell) {
        const std::size_t i = flow.At(cell);
        const double mass = flow.Rho[i] * (flow.Edges[i + 1] - flow.Edges[i]);
        const double energy = flow.P[i] / flow.Rho[i] / 0.4 + 0.5 * flow.Ux[i] * flow.Ux[i];
        const std::array<double, 5> each = {1.0, flow.Ux[i], flow.Uy[i], energy, flow.Smoke[i]};
        for (std::size_t k = 0; k < sums.size(); ++k) sums[k] += mass * each[k];
    }
    return sums;
}

TEST_P(SchemeContract, ConservesOverAThousandSteps) {
    Flow flow = RoughFlow(100);
    const auto before = TotalsOf(flow);
    Flow next = flow;
    for (int step = 0; step < 1000; ++step) {
        FillNeighbours(flow, PeriodicBoundary);
        const StepReport report = scheme_.Advance(flow, constants_, StepAt(flow, 0.8), next);
        ASSERT_LT(report.Courant, 1.0);
        std::swap(flow, next);
        next.Edges = flow.Edges;
    }
    const auto after = TotalsOf(flow);
    const double epsilon = IsDouble(GetParam()) ? 2.3e-16 : 1.2e-7;
    const double tolerance = 100.0 * epsilon * std::sqrt(1000.0);
    const std::array<double, 5> multiples = {1.0, 3.0, 3.0, 10.0, 3.0};
    for (std::size_t k = 0; k < FieldsOf(GetParam()); ++k)
        EXPECT_NEAR(after[k], before[k], multiples[k] * tolerance) << "total " << k;
}

Flow Mirrored(const Flow& flow) {
    Flow mirrored = flow;
    for (int cell = 1 - B; cell <= flow.N + B; ++cell)
        for (const auto field : Fields)
            (mirrored.*field)[flow.At(cell)] =
                (field == &Flow::Ux ? -1.0 : 1.0) * (flow.*field)[flow.At(flow.N + 1 - cell)];
    return mirrored;
}

TEST_P(SchemeContract, MirrorsAMirroredFlow) {
    Flow rough = RoughFlow(100);
    // Cells of exactly equal width on both sides of 0, so that the mirror image is exact.
    for (int i = 1 - B; i <= rough.N + B + 1; ++i) rough.Edges[rough.At(i)] = (i - 51) / 128.0;
    Flow evenWarmth = rough;
    evenWarmth.P = evenWarmth.Rho;
    Flow parting = rough;
    for (int cell = 1 - B; cell <= parting.N + B; ++cell) {
        const std::size_t i = parting.At(cell);
        parting.Rho[i] = parting.P[i] = 1.0;
        parting.Ux[i] = cell <= 50 ? -24.0 : 24.0;
    }
    // Gas that is next to nothing between dense gas that closes in from both sides, at a wall: the
    // states beside its edges have neither density nor pressure.
    Flow squeezed = parting;
    const std::array<std::array<double, 3>, 4> half = {
        {{1.0, 1e-8, 252.0}, {1.0, 1.0, -146.0}, {5e-5, 264.0, 0.0}, {0.9, 1e-8, -184.0}}};
    for (int k = 0; k < 4; ++k) {
        for (const int side : {-1, 1}) {
            const std::size_t i = squeezed.At(side > 0 ? 54 - k : 47 + k);
            squeezed.Rho[i] = half[static_cast<std::size_t>(k)][0];
            squeezed.P[i] = half[static_cast<std::size_t>(k)][1];
            squeezed.Ux[i] = side * half[static_cast<std::size_t>(k)][2];
        }
    }
    for (const Flow& flow : {rough, evenWarmth, parting, squeezed}) {
        const Flow mirrored = Mirrored(flow);
        Flow next = flow;
        Flow nextMirrored = flow;
        for (const double courant : {0.2, 0.85}) {
            const double step = StepAt(flow, courant);
            scheme_.Advance(flow, constants_, step, next);
            scheme_.Advance(mirrored, constants_, step, nextMirrored);
            ExpectSameBits(nextMirrored, Mirrored(next));
        }
    }
}

// The last strip of a grid may reach past the zone of neighbours, into zeros.
TEST(Heron32Contract, IgnoresWhatLiesPastTheNeighbours) {
    const LoadedScheme scheme(SchemeKind::Heron32);
    const Flow flow = RoughFlow(100);
    const int last = 10;
    for (const int beyond : {0, 1, 5, 6, 7, 20, 190}) {
        PlainStorage storage;
        StripCall<float> exact(SchemeKind::Heron32, last, storage);
        StripCall<float> reaching(SchemeKind::Heron32, last + beyond, storage);
        for (StripCall<float>* call : {&exact, &reaching}) {
            call->Load(flow, flow.N - last);
            call->SetNumbers({}, StepAt(flow, 0.85));
            call->Run(scheme.Entry());
        }
        for (std::size_t field = 0; field < Fields.size(); ++field)
            for (int i = B; i < B + last; ++i)
                ASSERT_EQ(reaching.Results[field][i], exact.Results[field][i]) << beyond;
        EXPECT_EQ(reaching.Courant, exact.Courant) << beyond;
    }
}

}  // namespace
