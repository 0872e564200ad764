// Scheme libraries with one fault each, for the test of what the panel makes of them. The build
// gives the fault, the name of the entry point and its float type.
#include <algorithm>
#include <limits>
#include <string_view>

#include "schemes/scheme_entry_points.h"

namespace {

constexpr std::string_view fault = FAULT;
constexpr FLOAT notANumber = std::numeric_limits<FLOAT>::quiet_NaN();

FLOAT CourantOf(bool isFirstStrip) {
    if (fault == "CourantOfTwo") return 2;
    if (fault == "CourantIsNoNumber") return notANumber;
    if (fault == "FirstStripsCourantIsNoNumber" && isFirstStrip) return notANumber;
    return FLOAT(0.5);
}

}  // namespace

// But for its fault it gives every cell back as it was, and overwrites the Courant number instead
// of raising it, so that the last strip's would cover all others.
extern "C" void ENTRY(const FLOAT* edges, const FLOAT* density, const FLOAT* pressure,
                      const FLOAT* velocity, const FLOAT* transverse, const FLOAT*,
                      const FLOAT* smoke, FLOAT* densityResult, FLOAT* pressureResult,
                      FLOAT* velocityResult, FLOAT* transverseResult, FLOAT*, FLOAT* smokeResult,
                      const FLOAT*, FLOAT* courant, const FLOAT*, const FLOAT*, const FLOAT*,
                      const FLOAT*, const FLOAT*, const FLOAT*, const FLOAT*, const FLOAT*,
                      const int* width, const int* boundary, int*) {
    if (fault == "GivesNothing") return;
    if (fault == "Crashes") *static_cast<volatile int*>(nullptr) = 1;
    *courant = CourantOf(edges[*boundary - 1] < 0);
    const int cells = fault == "LeavesOutACell" ? *width - 1 : *width;
    const auto give = [&](const FLOAT* field, FLOAT* result) {
        std::copy_n(field + *boundary, cells, result + *boundary);
    };
    give(density, densityResult);
    give(pressure, pressureResult);
    if (fault == "PressureIsInfinite")
        pressureResult[*boundary] = std::numeric_limits<FLOAT>::infinity();
    give(velocity, velocityResult);
    give(transverse, transverseResult);
    if (fault != "LeavesOutTheSmoke") give(smoke, smokeResult);
}
