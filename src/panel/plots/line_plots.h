// The three line plots over the grid.
#pragma once

struct Controls;
struct ExperimentState;

// Each draws the plot of the present state arrays over what its surface shows, then updates the
// boxes of the selected cell and the plot's Min and Max boxes. Writing a box runs its handler. A
// paint never clears.
void pctDensityPlot_Paint(ExperimentState& state, Controls& controls);
void pctPressurePlot_Paint(ExperimentState& state, Controls& controls);
void pctVelocityPlot_Paint(ExperimentState& state, Controls& controls);

// Takes the selected values from the arrays and shows them in their boxes, pressure first.
void ShowSelectedValues(ExperimentState& state, Controls& controls);

// Paint density, pressure and velocity; the second clears each surface right before its paint.
void PaintPlots(ExperimentState& state, Controls& controls);
void ClearAndPaintPlots(ExperimentState& state, Controls& controls);

// While an object of this class exists, paints draw nothing and only update the boxes. For
// procedures that paint many times before the screen is updated. The caller must clear and paint
// all three surfaces afterwards.
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

// Clears all three surfaces, then paints. If MultiplePlots is 1, clears nothing, so that the curves
// are drawn over the old ones.
void RepaintPlots(ExperimentState& state, Controls& controls);
