// The extremes of a table of stored states.
#pragma once

#include <limits>

#include "core/picture/space_time_table.h"

// The extremes of the first States states of a table, of finite values only.
struct SpaceTimeRange {
    int States = 0;
    float Low = std::numeric_limits<float>::max();
    float High = std::numeric_limits<float>::lowest();
};

// Extends `range` by the states that it does not cover yet, and sets Lo and Hi to the exact
// extremes of cells 1 to N of all NS states; both to 0 if no value is finite. The range must be
// empty or that of the same table with NS states or fewer.
void ScanSpaceTimeRange(const SpaceTimeTable& table, SpaceTimeRange& range, double& Lo, double& Hi);
