// The entry point of a difference scheme, as a run is handed it.
#pragma once

#include <string>

#include "schemes/scheme_entry_points.h"

// Exactly one entry point is set. Or none, if the scheme is unknown or could not be loaded; Trouble
// then says why, as part of a sentence.
struct SchemeLibrary {
    Kestrel64Entry* Kestrel64 = nullptr;
    Kestrel32Entry* Kestrel32 = nullptr;
    Heron32Entry* Heron32 = nullptr;
    PloverEntry* Plover = nullptr;
    bool ReadsMiddleRowOnly = false;  // of the 25 rows of a field
    std::string Trouble = {};

    bool IsLoaded() const { return Kestrel64 || Kestrel32 || Heron32 || Plover; }
    bool CarriesSmoke() const { return Plover == nullptr; }
};
