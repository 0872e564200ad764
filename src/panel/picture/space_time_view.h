// The grayscale picture of one stored variable over space and time, small or over all three plots.
#pragma once

struct Controls;
struct ExperimentState;

// Paints the variable that lstGrayVariable names over the stored states, at the present size.
// Nothing before two states are stored. Plover carries no smoke: its picture falls back to density.
void pctSpaceTime_Paint(ExperimentState& state, Controls& controls);

// The same over the first `states` stored states only: the picture as it was when there were no
// more. Nothing for fewer than two.
void PaintFirstStates(ExperimentState& state, Controls& controls, int states);

// The same, but the small picture, which shows no numbers of its own, is drawn when it is seen: the
// run stores states faster than a screen shows pictures.
void PaintFirstStatesWhenSeen(ExperimentState& state, Controls& controls, int states);

// A click makes the picture small, a double click big. Big, it lends itself the velocity plot's
// caption and limits and hides the boxes that it would lie under.
void pctSpaceTime_Click(ExperimentState& state, Controls& controls);
void pctSpaceTime_DblClick(ExperimentState& state, Controls& controls);

// A press at x, y, in pixels, brings back the stored state and the cell there, while stopped.
void pctSpaceTime_MouseDown(ExperimentState& state, Controls& controls, float x, float y);

// A row of the list is chosen.
void lstGrayVariable_Click(ExperimentState& state, Controls& controls);
