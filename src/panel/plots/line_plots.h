// The three line plots over the grid.
#pragma once

struct Controls;
struct ExperimentState;

// Each draws its curve from the present state arrays over what its surface shows, marks the control
// points (only stopped, on state 0, and not in sound-wave mode) and the selected cell, and brings
// the selected cell's boxes and the plot's Min and Max boxes up to date. Writing a box runs its
// handler. A paint never clears.
void pctDensityPlot_Paint(ExperimentState& state, Controls& controls);
void pctPressurePlot_Paint(ExperimentState& state, Controls& controls);
void pctVelocityPlot_Paint(ExperimentState& state, Controls& controls);

// Takes the selected values from the arrays and shows them in their boxes, pressure first.
void ShowSelectedValues(ExperimentState& state, Controls& controls);

// Density, pressure, velocity: the paints alone, or each surface cleared right before its paint.
void PaintPlots(ExperimentState& state, Controls& controls);
void ClearAndPaintPlots(ExperimentState& state, Controls& controls);

// While it lives the paints draw nothing and only bring the boxes up to date. For a procedure that
// paints many times before the screen is updated. The caller must clear and paint all three
// surfaces after its end.
class PlotsUnseen {
public:
    explicit PlotsUnseen(Controls& controls);
    ~PlotsUnseen();
    PlotsUnseen(const PlotsUnseen&) = delete;
    PlotsUnseen& operator=(const PlotsUnseen&) = delete;

private:
    Controls& controls_;
    bool wereUnseen_;
};

// Clears all three surfaces, then paints; lays the curves over the old ones if MultiplePlots is 1.
void RepaintPlots(ExperimentState& state, Controls& controls);
