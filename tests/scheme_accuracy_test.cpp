// The schemes against exact solutions.
#include <gtest/gtest.h>

#include "verify/trial_run.h"

namespace {

class SchemeAccuracy : public testing::TestWithParam<SchemeKind> {
protected:
    SchemeAccuracy() : scheme_(GetParam()) {}
    LoadedScheme scheme_;
};

INSTANTIATE_TEST_SUITE_P(AllSchemes, SchemeAccuracy, testing::ValuesIn(AllSchemes),
                         [](const auto& row) { return std::string(SchemeName(row.param)); });

TEST_P(SchemeAccuracy, RunsEveryShockTubeWithoutAFloor) {
    for (const ShockTube& tube : ShockTubes) {
        Flow flow = ShockTubeStart(tube, 400);
        const RunReport report = RunTrial(scheme_, ShockTubeSettings(tube), flow);
        EXPECT_TRUE(report.Finite) << tube.Name;
        EXPECT_EQ(report.Floored, 0) << tube.Name;
    }
}

TEST_P(SchemeAccuracy, FindsTheDensityOfTheFirstShockTube) {
    Flow flow = ShockTubeStart(ShockTubes[0], 400);
    RunTrial(scheme_, ShockTubeSettings(ShockTubes[0]), flow);
    EXPECT_LT(Compare(flow, ShockTubeExact(ShockTubes[0], 400, 1.4)).Rho, 0.0060);
}

}  // namespace
