// The Lagrangian scheme, in 32-bit floats.
#include "schemes/entry_adapter.h"
#include "schemes/lagrangian_remap_step.h"
#include "schemes/scheme_entry_points.h"

extern "C" [[gnu::visibility("default")]] void HERON32(
    const float* edges, const float* density, const float* pressure, const float* velocity,
    const float* transverse, const float* /*transverseAgain*/, const float* smoke,
    float* densityResult, float* pressureResult, float* velocityResult, float* transverseResult,
    float* /*thirdResult*/, float* smokeResult, const float* timeStep, float* courant,
    const float* gamma, const float* rhoFloor, const float* auxFloor, const float* pFloor,
    const float* vFloor, const int* width, const int* boundary, int* opCounters) {
    const StripState<float> strip = WithinGrid(
        StripAt(edges, density, pressure, velocity, transverse, smoke, *width, *boundary),
        *boundary);
    const StripResult<float> result = ResultAt(densityResult, pressureResult, velocityResult,
                                               transverseResult, smokeResult, *boundary);
    const StepConstants<float> constants = {*timeStep, *gamma,  *rhoFloor,
                                            *auxFloor, *pFloor, *vFloor};
    *courant = std::max(*courant, AdvanceLagrangian(strip, constants, result, opCounters));
}
