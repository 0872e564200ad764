// What a step costs. Kernels tell on how many cells they did each kind of work; CountOperations
// turns that into the operations that an entry point reports.
#pragma once

#include <algorithm>
#include <array>
#include <span>

// Operations on one cell. A subtraction is an addition, a division a reciprocal; a selection is a
// minimum, a maximum or a conditional move; signs and magnitudes are taken by bit masks and are
// free, as are comparisons.
struct CellCost {
    int Adds;
    int Mults;
    int Recips;
    int Selects;
    int Roots;
};

enum class Work {
    Preparation,    // every step
    QuietSearch,    // look for gas that is the same everywhere
    Quiet,          // cells of such gas
    Gas,            // all other cells
    Uneven,         // chunks with cells of unequal width
    ShockSearch,    // every cell that is not quiet
    Shock,          // chunks that hold a shock
    Flattening,     // chunks in which parabolas are flattened
    Supersonic,     // chunks with gas faster than sound
    ContactSearch,  // every cell that is not quiet
    SteepDensity,   // chunks that may hold a contact
    Contact,        // chunks that hold one
    StrongEdge,     // chunks with an edge that is not weak
    Tempering,      // chunks in which velocities are made less steep
    MixedEdge,      // chunks whose edges have different upstream sides
    FailureSearch,  // look for cells without density or pressure
    Marking,        // those cells
    Mending,        // their new fluxes
    Carried,        // where a carried quantity varies
    JumpSearch,     // the same, where jumps are steepened
    CarriedJump,    // chunks that hold a jump of one
    Kinds
};

// The cells of one block on which each kind of work was done. Padding is not counted: no kernel is
// credited with more than Limit cells per call.
struct WorkDone {
    int Limit;
    std::array<int, static_cast<std::size_t>(Work::Kinds)> Cells = {};

    void Add(Work kind, int cells) {
        Cells[static_cast<std::size_t>(kind)] += std::min(cells, Limit);
    }
};

struct WorkCost {
    Work Kind;
    CellCost Cost;
};

// clang-format off
inline constexpr WorkCost CommonCosts[] = {
    {Work::QuietSearch,   {3, 0, 0, 2, 0}},
    {Work::Quiet,         {0, 1, 0, 0, 0}},
    {Work::FailureSearch, {0, 2, 0, 4, 0}},
    {Work::Marking,       {0, 2, 0, 5, 0}},
    {Work::Mending,       {33, 26, 3, 5, 0}},
    {Work::Carried,       {30, 26, 1, 23, 0}},
    {Work::JumpSearch,    {5, 1, 0, 4, 0}},
    {Work::CarriedJump,   {11, 3, 3, 11, 0}},
};
inline constexpr WorkCost TracedCosts[] = {
    {Work::Preparation,   {2, 11, 1, 2, 1}},
    {Work::Gas,           {159, 145, 2, 82, 0}},
    {Work::Uneven,        {94, 117, 21, 70, 0}},
    {Work::ShockSearch,   {3, 1, 0, 2, 0}},
    {Work::Shock,         {10, 9, 2, 23, 0}},
    {Work::Flattening,    {1, 6, 0, 2, 0}},
    {Work::Supersonic,    {0, 0, 0, 4, 0}},
    {Work::ContactSearch, {1, 1, 0, 1, 0}},
    {Work::SteepDensity,  {11, 3, 0, 5, 0}},
    {Work::Contact,       {35, 16, 6, 21, 0}},
    {Work::StrongEdge,    {32, 62, 5, 24, 6}},
};
inline constexpr WorkCost LagrangianCosts[] = {
    {Work::Preparation,   {2, 5, 2, 2, 1}},
    {Work::Gas,           {199, 182, 5, 136, 1}},
    {Work::StrongEdge,    {30, 55, 5, 16, 3}},
    {Work::SteepDensity,  {13, 6, 0, 5, 0}},
    {Work::Tempering,     {3, 6, 1, 1, 0}},
    {Work::Contact,       {19, 6, 3, 15, 0}},
    {Work::MixedEdge,     {0, 0, 0, 11, 0}},
};
inline constexpr WorkCost PredictorCorrectorCosts[] = {
    {Work::Preparation,   {2, 8, 1, 2, 1}},
    {Work::Gas,           {126, 102, 5, 75, 2}},
    {Work::SteepDensity,  {11, 6, 0, 5, 0}},
    {Work::Contact,       {20, 9, 1, 8, 0}},
    {Work::Shock,         {7, 16, 0, 8, 0}},
};
// clang-format on

// Adds to the eight counters of an entry point: flops, additions, multiplications, reciprocals,
// selections, square roots, and two kinds that no scheme here needs.
inline void CountOperations(const WorkDone& work, std::span<const WorkCost> costs, int* counters) {
    for (const auto& [kind, cost] : costs) {
        const int cells = work.Cells[static_cast<std::size_t>(kind)];
        counters[0] += cells * (cost.Adds + cost.Mults + cost.Recips + cost.Roots);
        counters[1] += cells * cost.Adds;
        counters[2] += cells * cost.Mults;
        counters[3] += cells * cost.Recips;
        counters[4] += cells * cost.Selects;
        counters[5] += cells * cost.Roots;
    }
}
