// The parabolas of single cells against exact ones.
#include <gtest/gtest.h>

#include <array>

#include "counting_float.h"
#include "schemes/uneven_parabola.h"

namespace {

// Averages of a parabola over cells of unequal width give that parabola back.
TEST(UnevenParabola, IsExactForAParabola) {
    constexpr std::array<double, 6> edges = {0.0, 1.0, 2.2, 3.1, 4.2, 5.3};
    const auto value = [](double x) { return x * (7.0 + 0.5 * x); };
    std::array<double, 5> average = {};
    std::array<double, 5> width = {};
    for (std::size_t k = 0; k < average.size(); ++k) {
        const auto integral = [](double x) { return x * x * (3.5 + 0.5 / 3.0 * x); };
        width[k] = edges[k + 1] - edges[k];
        average[k] = (integral(edges[k + 1]) - integral(edges[k])) / width[k];
    }
    const UnevenStencil<CountingFloat> stencil(width[0], width[1], width[2], width[3], width[4]);
    CountingFloat fromLeft, toRight;
    stencil.Parabola({average[1] - average[0], average[2] - average[1], average[3] - average[2],
                      average[4] - average[3]},
                     fromLeft, toRight);
    EXPECT_NEAR(fromLeft.Value, average[2] - value(edges[2]), 1e-13);
    EXPECT_NEAR(toRight.Value, value(edges[3]) - average[2], 1e-13);
}

}  // namespace
