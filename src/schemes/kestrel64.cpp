// The full scheme in 64-bit floats.
#include "schemes/entry_adapter.h"
#include "schemes/scheme_entry_points.h"
#include "schemes/traced_step.h"

extern "C" [[gnu::visibility("default")]] const int READS_MIDDLE_ROW_ONLY = 1;

extern "C" [[gnu::visibility("default")]] void KESTREL64(
    const double* edges, const double* densityRows, const double* pressureRows,
    const double* velocityRows, const double* transverseRows, const double* /*thirdRows*/,
    const double* smoke, double* densityResult, double* pressureResult, double* velocityResult,
    double* transverseResult, double* /*thirdResult*/, double* smokeResult, const double* timeStep,
    double* courant, const double* gamma, const double* rhoFloor, const double* auxFloor,
    const double* pFloor, const double* vFloor, const double* difcon, const double* shkjmp,
    const double* wavhaf, const int* width, const int* boundary, int* opCounters) {
    const int middle = MiddleRow * (*width + 2 * *boundary);
    const StripState<double> strip =
        StripAt(edges, densityRows + middle, pressureRows + middle, velocityRows + middle,
                transverseRows + middle, smoke, *width, *boundary);
    const StripResult<double> result = ResultAt(densityResult, pressureResult, velocityResult,
                                                transverseResult, smokeResult, *boundary);
    const StepConstants<double> constants = {*timeStep, *gamma,  *rhoFloor, *auxFloor, *pFloor,
                                             *vFloor,   *difcon, *shkjmp,   *wavhaf};
    *courant = std::max(*courant, AdvanceTraced(strip, constants, result, opCounters));
}
