// What a step costs, for the operation counters.
#pragma once

// Operations on one cell. A subtraction is an addition, a division a reciprocal; a selection is a
// minimum, a maximum or a conditional move; signs and sizes are taken by bit masks and are free, as
// are comparisons.
struct CellCost {
    int Adds;
    int Mults;
    int Recips;
    int Selects;
    int Roots;
};

// Adds the cost of that many cells to the eight counters of an entry point: flops, additions,
// multiplications, reciprocals, selections, square roots, and two kinds that no scheme here needs.
inline void CountOperations(const CellCost& cost, int cells, int* counters) {
    counters[0] += cells * (cost.Adds + cost.Mults + cost.Recips + cost.Roots);
    counters[1] += cells * cost.Adds;
    counters[2] += cells * cost.Mults;
    counters[3] += cells * cost.Recips;
    counters[4] += cells * cost.Selects;
    counters[5] += cells * cost.Roots;
}
