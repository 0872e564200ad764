// The full scheme in 32-bit floats.
#include "schemes/entry_adapter.h"
#include "schemes/scheme_entry_points.h"
#include "schemes/traced_step.h"

extern "C" [[gnu::visibility("default")]] const int READS_MIDDLE_ROW_ONLY = 1;

extern "C" [[gnu::visibility("default")]] void KESTREL32(
    const float* edges, const float* densityRows, const float* pressureRows,
    const float* velocityRows, const float* transverseRows, const float* /*thirdRows*/,
    const float* smoke, float* densityResult, float* pressureResult, float* velocityResult,
    float* transverseResult, float* /*thirdResult*/, float* smokeResult, const float* timeStep,
    float* courant, const float* gamma, const float* rhoFloor, const float* auxFloor,
    const float* pFloor, const float* vFloor, const float* difcon, const float* shkjmp,
    const float* wavhaf, const int* width, const int* boundary, int* opCounters) {
    const int middle = MiddleRow * (*width + 2 * *boundary);
    const StripState<float> strip =
        StripAt(edges, densityRows + middle, pressureRows + middle, velocityRows + middle,
                transverseRows + middle, smoke, *width, *boundary);
    const StripResult<float> result = ResultAt(densityResult, pressureResult, velocityResult,
                                               transverseResult, smokeResult, *boundary);
    const StepConstants<float> constants = {*timeStep, *gamma,  *rhoFloor, *auxFloor, *pFloor,
                                            *vFloor,   *difcon, *shkjmp,   *wavhaf};
    *courant = std::max(*courant, AdvanceTraced(strip, constants, result, opCounters));
}
