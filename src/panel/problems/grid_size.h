// The box that changes the number of cells.
#pragma once

struct Controls;
struct ExperimentState;

// Rebuilds the whole problem for the number in the box, at least 6 and at least NSelected; a larger
// one than MaxGridCells is cut down. The control points keep their positions, and a sound wave is
// built anew. Only before a run: otherwise the box shows the present number again. Any other text
// is left as typed and changes nothing.
void txtNGridCells_Change(ExperimentState& state, Controls& controls);
