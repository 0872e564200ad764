#include "core/run/scheme_library.h"

#include <dlfcn.h>

namespace {

// Sets the entry point, or leaves it null and sets scheme.Trouble to what the loader says: that
// names the file it has found and what is wrong with it.
template <typename Entry>
void Load(const char* file, const char* name, Entry*& entry, SchemeLibrary& scheme) {
    void* library = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    entry = library != nullptr ? reinterpret_cast<Entry*>(dlsym(library, name)) : nullptr;
    if (entry == nullptr) {
        const char* said = dlerror();
        scheme.Trouble = said != nullptr ? said : std::string(name) + " is nowhere";
        if (library != nullptr) dlclose(library);
        return;
    }
    const auto* middleRowOnly = static_cast<const int*>(dlsym(library, "READS_MIDDLE_ROW_ONLY"));
    scheme.ReadsMiddleRowOnly = middleRowOnly != nullptr && *middleRowOnly != 0;
}

}  // namespace

SchemeLibrary LoadSchemeLibrary(const std::string& schemeName) {
    SchemeLibrary scheme;
    if (schemeName == "Kestrel") {
        Load("libKestrel64.so", "KESTREL64", scheme.Kestrel64, scheme);
    } else if (schemeName == "Kestrel32") {
        Load("libKestrel32.so", "KESTREL32", scheme.Kestrel32, scheme);
    } else if (schemeName == "Heron32") {
        Load("libHeron32.so", "HERON32", scheme.Heron32, scheme);
    } else if (schemeName == "Plover") {
        Load("libPlover.so", "PLOVER", scheme.Plover, scheme);
    } else {
        scheme.Trouble = "there is no scheme \"" + schemeName + "\"";
        return scheme;
    }
    if (!scheme.IsLoaded()) {
        scheme.Trouble = "the scheme " + schemeName + " cannot be loaded (" + scheme.Trouble + ")";
    }
    return scheme;
}
