// The text of a set-up file: the grid size, the numerical parameters, the axes and the control
// points of a problem, as comma-separated fields that a reader may take line by line or not.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/model/offset_array.h"

struct ExperimentState;

// What a set-up file holds, under the names that the experiment gives it. The lists have the
// bounds 0..N+2 of the experiment's own; entries 0..NSelected+1 are those of the file.
struct SetUpValues {
    int NDifferenceScheme = 0;
    int NGridCells = 0;
    double SoundSpeed0 = 0.0;
    double CourantNumber = 0.0;
    double RhoMax = 0.0;
    double RhoMin = 0.0;
    double PMax = 0.0;
    double PMin = 0.0;
    double VXMax = 0.0;
    double VXMin = 0.0;
    double Periods = 0.0;
    int NPlotsPerPeriod = 0;
    int NSelected = 0;

    OffsetArray<int> MSelList;
    OffsetArray<double> XSelList;
    OffsetArray<double> RhoSelList;
    OffsetArray<double> PSelList;
    OffsetArray<double> VxSelList;
};

// What came of reading: the set-up, or else the reason, as part of a sentence ("it ends too soon"),
// and a message for the user, which is empty where a failure is to be passed over in silence.
struct SetUpReading {
    std::optional<SetUpValues> Values;
    std::string Message = {};
    std::string Reason = {};
};

// The present set-up as the text of a file, lines ended by CR LF. A float has 15 significant
// digits.
std::string WriteSetUpText(const ExperimentState& state);

// Reads the text of a file field by field; line ends may be CR LF, LF or CR, and what follows the
// last field is not looked at. A fraction in an integer field is rounded away, ties to even. A
// string that is not the expected one gives a message. All else that is wrong is silent: a text
// that ends too soon, a field that is no number, an integer beyond 32 bits, and a set-up that
// cannot stand:
// - N from 6 to maxGridCells; NSelected from 0 to N; NPlotsPerPeriod at least 1
// - the points in strictly rising cells from 1 on; those beyond N are to be mapped to the grid by
//   their positions. For the two closing entries, cells 0 and N+1 are set whatever the file says,
//   so that a file stays good when only its N is edited
// - densities, pressures, SoundSpeed0 and Periods above 0; CourantNumber between 0 and 1; no
//   density, pressure or speed beyond LargestValue
// - no axis that ends below its beginning, and none without length if there are no points
SetUpReading ReadSetUpText(std::string_view text, int maxGridCells);

// Puts the numbers and the lists in the place of the experiment's own, densities and pressures
// raised to their floors as in the boxes; nothing else changes.
void TakeSetUpValues(ExperimentState& state, SetUpValues values);
