// How far computed fields are from exact ones.
#pragma once

#include "core/model/offset_array.h"

struct ErrorNorms {
    double Mean = 0.0;            // of the absolute difference, weighted by the widths of the cells
    double RootMeanSquare = 0.0;  // likewise
    double Largest = 0.0;         // absolute difference
    int LargestCell = 0;          // where
    double Overshoot = 0.0;       // past the greatest exact value, at least 0
    double Undershoot = 0.0;      // below the least one, at least 0
    double Range = 0.0;           // of the exact values
};

// Of cells 1..cells, whose edges are x[1]..x[cells+1].
ErrorNorms CompareFields(const OffsetArray<double>& computed, const OffsetArray<double>& exact,
                         const OffsetArray<double>& x, int cells);

// The sum of the absolute changes from cell to cell, cells 1..cells.
double TotalVariation(const OffsetArray<double>& field, int cells);
