// Loads the libraries of the difference schemes at run time.
#pragma once

#include <string>

#include "core/run/scheme_library.h"

// The library of a scheme of the table of schemes. It is looked for where the program looks for its
// own libraries, so that the loader picks the build for the processor's instruction set. A library
// stays loaded once its entry point has been found. May be called from any thread.
SchemeLibrary LoadSchemeLibrary(const std::string& schemeName);

// The same from a folder, for tests and measurements of several builds; an empty one is the search
// path again.
SchemeLibrary LoadSchemeLibrary(const std::string& schemeName, const std::string& folder);
