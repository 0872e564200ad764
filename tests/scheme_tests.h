// What the tests that run for each of the four scheme libraries share.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "scheme_calls/loaded_scheme.h"

class SchemeTest : public testing::TestWithParam<SchemeKind> {
protected:
    SchemeTest() : scheme_(GetParam()) {}

    LoadedScheme scheme_;
};

inline std::string NameOfRow(const testing::TestParamInfo<SchemeKind>& row) {
    return SchemeName(row.param);
}

// The time step of that Courant number.
inline double StepAt(const Flow& flow, double courant) {
    double fastest = 0.0;
    for (int cell = 1; cell <= flow.N; ++cell) {
        const std::size_t i = flow.At(cell);
        const double signal = std::abs(flow.Ux[i]) + std::sqrt(1.4 * flow.P[i] / flow.Rho[i]);
        fastest = std::max(fastest, signal / (flow.Edges[i + 1] - flow.Edges[i]));
    }
    return courant / fastest;
}
