// The space-time picture of one stored variable as a drawing: a gray image and its limits. Lighter
// means larger; the grid runs from left to right, the stored states from the bottom to the top.
#pragma once

#include <string_view>

#include "core/model/offset_array.h"
#include "core/picture/plot_curves.h"
#include "core/picture/space_time_table.h"

class DrawingList;
struct ExperimentState;
struct SpaceTimeRaster;

// The stored array of a variable, by the name that the list of variables has for it: "Density",
// "Pressure", "Velocity", "VY", "FSmoke", "R+", "R-" or "R0 (Entropy)". Null for any other name.
const OffsetArray<float>* StoredVariable(const ExperimentState& state, std::string_view name);

// The first `states` states of a stored array as a table. Refers to the record.
SpaceTimeTable StoredTable(const ExperimentState& state, const OffsetArray<float>& stored,
                           int states);

// Adds the picture to the list, an image of the raster's size with width by height pixels of the
// table in it. Returns the extremes of the table. Nothing is added by a raster of no size.
AxisLimits DrawSpaceTimePicture(const SpaceTimeTable& table, int width, int height,
                                SpaceTimeRaster& raster, DrawingList& list);
