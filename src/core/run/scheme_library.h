// The difference schemes, loaded by name at run time.
#pragma once

#include <string>

#include "schemes/scheme_entry_points.h"

// The entry point of one scheme: exactly one is set. Or none, if the name is unknown or the library
// or its entry point could not be found; Trouble then says which, as part of a sentence.
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

// The library of "Kestrel", "Kestrel32", "Heron32" or "Plover". It is looked for where the program
// looks for its own libraries, so that the build for the processor's instruction set is found by
// the loader. A library stays loaded once its entry point has been found.
SchemeLibrary LoadSchemeLibrary(const std::string& schemeName);
