#include "core/analysis/error_norms.h"

#include <algorithm>
#include <cmath>

ErrorNorms CompareFields(const OffsetArray<double>& computed, const OffsetArray<double>& exact,
                         const OffsetArray<double>& x, int cells) {
    ErrorNorms norms;
    double low = exact[1];
    double high = exact[1];
    for (int i = 1; i <= cells; ++i) {
        low = std::min(low, exact[i]);
        high = std::max(high, exact[i]);
    }
    norms.Range = high - low;
    const double length = x[cells + 1] - x[1];
    for (int i = 1; i <= cells; ++i) {
        const double error = std::abs(computed[i] - exact[i]);
        const double share = (x[i + 1] - x[i]) / length;
        norms.Mean += share * error;
        norms.RootMeanSquare += share * error * error;
        if (error > norms.Largest) {
            norms.Largest = error;
            norms.LargestCell = i;
        }
        norms.Overshoot = std::max(norms.Overshoot, computed[i] - high);
        norms.Undershoot = std::max(norms.Undershoot, low - computed[i]);
    }
    norms.RootMeanSquare = std::sqrt(norms.RootMeanSquare);
    return norms;
}

double TotalVariation(const OffsetArray<double>& field, int cells) {
    double variation = 0.0;
    for (int i = 2; i <= cells; ++i) variation += std::abs(field[i] - field[i - 1]);
    return variation;
}
