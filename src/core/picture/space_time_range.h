// The extremes of a table of stored states.
#pragma once

#include <limits>

#include "core/picture/space_time_table.h"

// The extremes of the first States states of a table. Values that are not finite do not count.
struct SpaceTimeRange {
    int States = 0;
    float Low = std::numeric_limits<float>::max();
    float High = std::numeric_limits<float>::lowest();
};

// Takes the states that are not yet in range into it, and sets Lo and Hi to the exact extremes of
// cells 1 to N of all NS states: 0 and 0 if no value is finite. The range must be of the same table
// with NS states or fewer, or empty.
void ScanSpaceTimeRange(const SpaceTimeTable& table, SpaceTimeRange& range, double& Lo, double& Hi);
