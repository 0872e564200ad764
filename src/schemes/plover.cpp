// The lean scheme, in 32-bit floats.
#include "schemes/entry_adapter.h"
#include "schemes/predictor_corrector_step.h"
#include "schemes/scheme_entry_points.h"

extern "C" [[gnu::visibility("default")]] void PLOVER(
    const float* edges, const float* density1, const float* /*density2*/, const float* /*density3*/,
    const float* /*density4*/, const float* /*density5*/, const float* pressure1,
    const float* /*pressure2*/, const float* /*pressure3*/, const float* /*pressure4*/,
    const float* /*pressure5*/, const float* velocity1, const float* /*velocity2*/,
    const float* /*velocity3*/, const float* /*velocity4*/, const float* /*velocity5*/,
    const float* transverse1, const float* /*transverse2*/, const float* /*transverse3*/,
    const float* /*transverse4*/, const float* /*transverse5*/, const float* /*transverse6*/,
    const float* /*transverse7*/, const float* /*third1*/, const float* /*third2*/,
    const float* /*third3*/, const float* /*third4*/, const float* /*third5*/,
    const float* /*third6*/, const float* /*third7*/, float* densityResult, float* pressureResult,
    float* velocityResult, float* transverseResult, float* /*thirdResult*/, const float* timeStep,
    float* courant, const float* gamma, const float* rhoFloor, const float* auxFloor,
    const float* pFloor, const float* vFloor, const int* width, const int* boundary,
    int* opCounters) {
    const float* noSmoke = nullptr;
    float* noSmokeResult = nullptr;
    const StripState<float> strip =
        StripAt(edges, density1, pressure1, velocity1, transverse1, noSmoke, *width, *boundary);
    const StripResult<float> result = ResultAt(densityResult, pressureResult, velocityResult,
                                               transverseResult, noSmokeResult, *boundary);
    const StepConstants<float> constants = {*timeStep, *gamma,  *rhoFloor,
                                            *auxFloor, *pFloor, *vFloor};
    *courant = std::max(*courant, AdvancePredictorCorrector(strip, constants, result, opCounters));
}
