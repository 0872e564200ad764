// Whether numbers are finite.
#pragma once

#include <cmath>
#include <limits>

// No branches and no sums of floats: this turns into vector instructions.
template <typename Float>
bool AllFinite(const Float* values, int count) {
    int odd = 0;
    for (int i = 0; i < count; ++i) {
        odd |= static_cast<int>(!(std::abs(values[i]) <= std::numeric_limits<Float>::max()));
    }
    return odd == 0;
}
