// What the entry boxes show, for an experiment that is set up without a window.
#pragma once

#include <string>

struct ExperimentState;

// A set-up writes some numbers back into their boxes, rounded to the format of the box. A text that
// a box does not show yet counts as an entry, and the experiment takes the rounded number. So what
// the boxes show belongs to the road on which a problem is built. The values at start are those of
// the boxes before anything has been put into them.
struct SetUpBoxes {
    std::string NGridCells;
    std::string CourantNumber;
    std::string Periods;
};

// Each puts a text into its box: as an entry if the box shows another one, else nothing happens. An
// entry that is not allowed now has the present value shown again; one that is no possible number
// stays as it is and changes nothing.
void PutCourantNumber(ExperimentState& state, SetUpBoxes& boxes, const std::string& text);
void PutPeriods(ExperimentState& state, SetUpBoxes& boxes, const std::string& text);

// The numbers that those boxes take.
bool IsCourantNumber(double number);
bool IsPeriods(double number);
