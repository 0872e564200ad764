// The last entry or press that was refused. Most refusals are silent on the panel; whoever wants to
// know asks here.
#pragma once

#include <string>

struct Controls;

struct LastRefusal {
    std::string What;          // the entry or the press: "Read Set Up of shock.txt"
    std::string Why;           // part of a sentence: "it ends too soon"
    std::string InForce = {};  // the value that stands instead; empty if there is none
};

// Puts a refusal in the place of the last one.
void NoteRefusal(Controls& controls, LastRefusal refusal);

// All empty before the first refusal.
const LastRefusal& ReadLastRefusal(const Controls& controls);
