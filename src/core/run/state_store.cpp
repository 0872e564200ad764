#include "core/run/state_store.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "core/model/experiment_state.h"
#include "core/model/gas.h"
#include "core/model/number_text.h"
#include "core/run/boundary_zones.h"

namespace {

void BeginGeneration(ExperimentState& state) {
    state.StoreGeneration += 1;
}

template <typename Change>
void ForEachStoreArray(ExperimentState& state, Change change) {
    BeginGeneration(state);
    for (OffsetArray<float>* array :
         {&state.SRho, &state.SP, &state.SUx, &state.SUy, &state.SFSmoke, &state.SRPlus,
          &state.SRMinus, &state.SEntropy}) {
        change(*array);
    }
}

// With at most 2002 states of 5003 cells the capacity is far inside 32 bits.
int BoundedCapacity(const ExperimentState& state) {
    const int slots = std::clamp(state.NPlotsTotal, 1, state.StoredT.Last() + 1);
    return StoreStride(state) * slots;
}

void CopyFields(ExperimentState& state, int base) {
    const int n = state.NGridCells;
    for (int i = 0; i <= n + 1; ++i) {
        state.SRho[base + i] = static_cast<float>(state.Rho[i]);
        state.SP[base + i] = static_cast<float>(state.P[i]);
        state.SUx[base + i] = static_cast<float>(state.Ux[i]);
        state.SUy[base + i] = static_cast<float>(state.Uy[i]);
        state.SFSmoke[base + i] = static_cast<float>(state.FSmoke[i]);
        state.SEntropy[base + i] =
            static_cast<float>(std::pow(state.Rho[i], -state.Gamma) * state.P[i]);
    }
}

// dR+ = du + dp/Z and dR- = du - dp/Z from cell to cell, Z being the mean impedance of the two.
void IntegrateInvariants(ExperimentState& state, int base) {
    const int n = state.NGridCells;
    state.SRPlus[base] = 0.0F;
    state.SRMinus[base] = 0.0F;
    double z = AcousticImpedance(state, 0);
    double rPlus = 0.0, rMinus = 0.0, sumPlus = 0.0, sumMinus = 0.0;
    for (int i = 1; i <= n + 1; ++i) {
        const double zBefore = z;
        z = AcousticImpedance(state, i);
        const double q = (state.P[i] - state.P[i - 1]) / ((z + zBefore) * 0.5);
        const double d = state.Ux[i] - state.Ux[i - 1];
        rPlus = rPlus + d + q;
        rMinus = rMinus + d - q;
        state.SRPlus[base + i] = static_cast<float>(rPlus);
        state.SRMinus[base + i] = static_cast<float>(rMinus);
        sumPlus += rPlus;
        sumMinus += rMinus;
    }
    const double perCell = 1.0 / n;
    const double meanPlus = (sumPlus - rPlus) * perCell;
    const double meanMinus = (sumMinus - rMinus) * perCell;
    for (int i = 0; i <= n + 1; ++i) {
        state.SRPlus[base + i] = static_cast<float>(state.SRPlus[base + i] - meanPlus);
        state.SRMinus[base + i] = static_cast<float>(state.SRMinus[base + i] - meanMinus);
    }
}

}  // namespace

int StoreStride(const ExperimentState& state) {
    return state.NGridCells + 2;
}

void SetNPlotsTotal(ExperimentState& state) {
    state.NPlotsTotal = RoundToEven(state.NPlotsPerPeriod * state.Periods);
}

void AllocateStore(ExperimentState& state) {
    state.StoreCapacity = BoundedCapacity(state);
    ForEachStoreArray(state, [&](OffsetArray<float>& array) {
        array = OffsetArray<float>(0, state.StoreCapacity);
    });
}

void ResizeStore(ExperimentState& state) {
    // What was never stored is zero before and after: copying it would only touch its memory.
    const int keep = StoreStride(state) * std::max(state.NStored, 1) - 1;
    state.StoreCapacity = BoundedCapacity(state);
    ForEachStoreArray(state,
                      [&](OffsetArray<float>& array) { array.Resize(state.StoreCapacity, keep); });
}

void EmptyStore(ExperimentState& state) {
    state.StoredT[0] = state.Time;
    state.StoreOffset = 0;
    state.NStored = 0;
    state.StoredStateNumber = 0;
}

void TakeSnapshot(ExperimentState& state, int base) {
    if (base < StoreStride(state) * state.NStored || base == 0) BeginGeneration(state);
    CopyFields(state, base);
    IntegrateInvariants(state, base);
}

bool StoreHasRoom(const ExperimentState& state) {
    return state.NStored <= state.StoredT.Last() &&
           StoreStride(state) * state.NStored + state.NGridCells + 1 <= state.StoreCapacity;
}

void StoreState(ExperimentState& state) {
    assert(StoreHasRoom(state));
    FillBoundaryZones(state);
    TakeSnapshot(state, StoreStride(state) * state.NStored);
    state.NStored += 1;
    state.StoreOffset = StoreStride(state) * state.NStored;
    state.StoredStateNumber = state.NStored - 1;
    state.StoredT[state.StoredStateNumber] = state.Time;
}

bool IsStored(const ExperimentState& state, int s) {
    if (s < 0 || s > state.StoredT.Last()) return false;
    const int base = StoreStride(state) * s;
    if (base + state.NGridCells + 1 > state.SRho.Last()) return false;
    return state.SRho[base + 1] > 0.0F;  // a stored density is above 0
}

void LoadStoredState(ExperimentState& state, int s) {
    assert(IsStored(state, s));
    const int base = StoreStride(state) * s;
    for (int i = 0; i <= state.NGridCells + 1; ++i) {
        state.Rho[i] = state.SRho[base + i];
        state.P[i] = state.SP[base + i];
        state.Ux[i] = state.SUx[base + i];
        state.Uy[i] = state.SUy[base + i];
        state.FSmoke[i] = state.SFSmoke[base + i];
    }
}
