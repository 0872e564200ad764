// The entry points of the four scheme libraries: what a library must export to be a difference
// scheme of this instrument. Include this header to call one of them, or to write one of your own
// (docs/writing-a-scheme.md).
//
//   library           exported C function   type
//   libKestrel64.so   KESTREL64             Kestrel64Entry
//   libKestrel32.so   KESTREL32             Kestrel32Entry
//   libHeron32.so     HERON32               Heron32Entry
//   libPlover.so      PLOVER                PloverEntry
//
// One call advances one strip of W cells of a one-dimensional flow of a gamma-law gas by one time
// step. Everything passes by reference: an array as the address of its first element, a number as
// the address of a variable. B is the width of the zone of neighbour cells on either side. Calls
// come one at a time, from one thread. Arrays are aligned as their type is, no further; no result
// overlaps another or an input. An exception must not leave the function.
//
// Strip cells are numbered 1 to W. "Row" below is an array of W + 2B cells, 1-B to W+B, so that
// element 0 of the array is cell 1-B; "result" is an array of W + 2B + 1 elements, 1-B to W+B+1.
//
//   edges         W + 2B + 1 elements: edges[i] is the left edge of the cell at row element i, and
//                 edges[i+1] its right edge. Strictly rising, the widths may differ.
//   rows          25 rows one behind the other: row (j, k), with j and k each from -2 to 2, begins
//                 at element (5(k+2) + (j+2))(W + 2B). The flow does not vary across, so that all
//                 25 rows are equal; a scheme may read any of them, unless it exports
//                 READS_MIDDLE_ROW_ONLY.
//   density, pressure   at least rhoFloor and pFloor
//   velocity      along the grid
//   transverse    velocity across the grid, carried with the gas
//   third         third velocity component: zero in every cell
//   smoke         a marker of the gas, carried with it; any value. W + 2B elements.
//   result arrays On return cells 1 to W (elements B to B+W-1) hold the state after the step, all
//                 of them in every array: a cell that is left out, or is not finite, ends the run.
//                 The other elements are scratch: the caller never reads them.
//   thirdResult   W elements from B on may be written; the caller never reads them.
//   timeStep      above zero; in the units of edges and velocity. It may be far too long for the
//                 flow: then courant must say so.
//   courant       In: 0 for the first strip of a step, for the others what the strips before have
//                 left. Out: the largest of that and the Courant number of this strip, over cells 1
//                 to W. When it reaches 1 the caller throws the step away, results and all, and
//                 asks for a shorter one; below 1 it sets the length of the next. NaN ends the run.
//   gamma         ratio of specific heats, above 1
//   rhoFloor, auxFloor, pFloor, vFloor   small positive constants: the least density, a spare one
//                 for the scheme's own use, the least pressure, and the speed that counts as rest
//   difcon, shkjmp, wavhaf   constants of the full scheme as the user has typed them: any finite
//                 number, at start 0.3, 0.2 and 1
//   width, boundary          W and B: W is 1 to 100 in KESTREL64, 1 to 200 in the others; B is 6
//   opCounters    8 totals that the call adds to: flops, additions, multiplications, reciprocals
//                 (divisions), selections (minimum, maximum and conditional moves), square roots of
//                 two kinds, exponentials
//
// Inputs come back as they were: some are the instrument's own arrays. The same arguments give the
// same bits, and a call may be repeated. A cell's result depends on nothing but the cell itself and
// the B cells on either side of it, so that a grid may be cut into strips anywhere.
#pragma once

extern "C" {

// A library that takes 25 rows and reads none but the middle one, (0, 0), may export this with any
// value but 0: the caller then spares itself the others, which costs as much as a good scheme.
extern const int READS_MIDDLE_ROW_ONLY;

using Kestrel64Entry = void(const double* edges, const double* densityRows,
                            const double* pressureRows, const double* velocityRows,
                            const double* transverseRows, const double* thirdRows,
                            const double* smoke, double* densityResult, double* pressureResult,
                            double* velocityResult, double* transverseResult, double* thirdResult,
                            double* smokeResult, const double* timeStep, double* courant,
                            const double* gamma, const double* rhoFloor, const double* auxFloor,
                            const double* pFloor, const double* vFloor, const double* difcon,
                            const double* shkjmp, const double* wavhaf, const int* width,
                            const int* boundary, int* opCounters);

using Kestrel32Entry = void(const float* edges, const float* densityRows, const float* pressureRows,
                            const float* velocityRows, const float* transverseRows,
                            const float* thirdRows, const float* smoke, float* densityResult,
                            float* pressureResult, float* velocityResult, float* transverseResult,
                            float* thirdResult, float* smokeResult, const float* timeStep,
                            float* courant, const float* gamma, const float* rhoFloor,
                            const float* auxFloor, const float* pFloor, const float* vFloor,
                            const float* difcon, const float* shkjmp, const float* wavhaf,
                            const int* width, const int* boundary, int* opCounters);

// Plain rows of W + 2B cells instead of the 25, no constants of the full scheme, and the transverse
// velocity twice. The last strip of a grid may reach past its neighbour zone: beyond it every row
// and the edges hold zeros. Such cells must show neither in courant nor in a cell that lies within
// the grid.
using Heron32Entry = void(const float* edges, const float* density, const float* pressure,
                          const float* velocity, const float* transverse,
                          const float* transverseAgain, const float* smoke, float* densityResult,
                          float* pressureResult, float* velocityResult, float* transverseResult,
                          float* thirdResult, float* smokeResult, const float* timeStep,
                          float* courant, const float* gamma, const float* rhoFloor,
                          const float* auxFloor, const float* pFloor, const float* vFloor,
                          const int* width, const int* boundary, int* opCounters);

// Plain rows of W + 2B cells, each at several positions, no constants of the full scheme, and no
// smoke. The positions stand for the cell itself and its neighbours across the grid, all equal in
// one dimension: a scheme may read any of them.
using PloverEntry = void(
    const float* edges, const float* density1, const float* density2, const float* density3,
    const float* density4, const float* density5, const float* pressure1, const float* pressure2,
    const float* pressure3, const float* pressure4, const float* pressure5, const float* velocity1,
    const float* velocity2, const float* velocity3, const float* velocity4, const float* velocity5,
    const float* transverse1, const float* transverse2, const float* transverse3,
    const float* transverse4, const float* transverse5, const float* transverse6,
    const float* transverse7, const float* third1, const float* third2, const float* third3,
    const float* third4, const float* third5, const float* third6, const float* third7,
    float* densityResult, float* pressureResult, float* velocityResult, float* transverseResult,
    float* thirdResult, const float* timeStep, float* courant, const float* gamma,
    const float* rhoFloor, const float* auxFloor, const float* pFloor, const float* vFloor,
    const int* width, const int* boundary, int* opCounters);

}  // extern "C"
