// The boxes and bars of the selected cell. A box and a bar that show one quantity drive each other;
// the busy flags say where the mutual calling ends. Every keystroke runs the box's handler, so
// half-typed text changes nothing and stays as typed.
#pragma once

#include <optional>

struct Controls;
struct ExperimentState;

class QLineEdit;
class QScrollBar;

// The number in a value box, or the cell in a cell box; empty if the text is not one that the box
// takes: no number, too large for the schemes' arithmetic, or a cell beyond the grid.
std::optional<double> ValueIn(const QLineEdit* box);
std::optional<int> CellIn(const ExperimentState& state, const QLineEdit* box);

// The three values of the selected cell. The fields themselves change only with Select.
void txtDensity_Change(ExperimentState& state, Controls& controls);
void txtPressure_Change(ExperimentState& state, Controls& controls);
void txtVelocity_Change(ExperimentState& state, Controls& controls);
void hsbDensity_Change(ExperimentState& state, Controls& controls);
void hsbPressure_Change(ExperimentState& state, Controls& controls);
void hsbVelocity_Change(ExperimentState& state, Controls& controls);

// The selected cell; a number beyond the grid is not taken.
void txtMSelected_Change(ExperimentState& state, Controls& controls);
void hsbMSelected_Change(ExperimentState& state, Controls& controls);

// The thumb of a bar is dragged.
void hsbDensity_Scroll(ExperimentState& state, Controls& controls);
void hsbPressure_Scroll(ExperimentState& state, Controls& controls);
void hsbVelocity_Scroll(ExperimentState& state, Controls& controls);
void hsbMSelected_Scroll(ExperimentState& state, Controls& controls);

// The ranges of the bars as every set-up lays them: -10000 to 10000 for a value, 1 to N for cells.
// The second can move the bar and so run its handler.
void SetValueBarRange(QScrollBar* bar);
void SetCellBarRange(const ExperimentState& state, Controls& controls);

// The value bar's place for v on the axis lo..hi, lo < hi.
int ValueBarPosition(const QScrollBar* bar, double v, double lo, double hi);
