// What a panel holds and shows, as hashes: two builds that play the same actions are compared by
// them.
#pragma once

#include <string>

class frmTernlow;

// Three hexadecimal hashes: of the record's fields, of the texts and places of the controls, of the
// pixels of the surfaces. Looking at the surfaces has what is still to be drawn drawn; without
// `looks` the third is 0. What the clock decides is left out: the meter's seconds and the rate, and
// the date and time in a caption.
std::string RecordOf(frmTernlow& form, bool looks);
