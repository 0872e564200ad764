// Writing the problem to a small text file and reading it back.
#pragma once

struct Controls;
struct ExperimentState;

// Both at any time. A cancelled dialog or a file that cannot be written or read ends in silence and
// changes nothing; a file whose strings are wrong gets a message. Writing replaces the old file as
// a whole or not at all. Reading changes the experiment only after the whole file has passed.
void cmdWriteSetUp_Click(ExperimentState& state, Controls& controls);
void cmdReadSetUp_Click(ExperimentState& state, Controls& controls);
