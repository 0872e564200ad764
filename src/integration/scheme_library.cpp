#include "integration/scheme_library.h"

#include <dlfcn.h>

namespace {

// The entry point, or null and in `trouble` what the loader says: that names the file it has found
// and what is wrong with it.
template <typename Entry>
Entry* FindEntry(const char* file, const char* name, std::string& trouble) {
    void* library = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    void* entry = library != nullptr ? dlsym(library, name) : nullptr;
    if (entry == nullptr) {
        const char* said = dlerror();
        trouble = said != nullptr ? said : std::string(name) + " is nowhere";
        if (library != nullptr) dlclose(library);
    }
    return reinterpret_cast<Entry*>(entry);
}

}  // namespace

SchemeLibrary LoadSchemeLibrary(const std::string& schemeName) {
    SchemeLibrary scheme;
    std::string trouble;
    if (schemeName == "Kestrel") {
        scheme.Kestrel64 = FindEntry<Kestrel64Entry>("libKestrel64.so", "KESTREL64", trouble);
    } else if (schemeName == "Kestrel32") {
        scheme.Kestrel32 = FindEntry<Kestrel32Entry>("libKestrel32.so", "KESTREL32", trouble);
    } else if (schemeName == "Heron32") {
        scheme.Heron32 = FindEntry<Heron32Entry>("libHeron32.so", "HERON32", trouble);
    } else if (schemeName == "Plover") {
        scheme.Plover = FindEntry<PloverEntry>("libPlover.so", "PLOVER", trouble);
    } else {
        scheme.Trouble = "there is no scheme \"" + schemeName + "\"";
        return scheme;
    }
    if (!trouble.empty()) {
        scheme.Trouble = "the scheme " + schemeName + " cannot be loaded (" + trouble + ")";
    }
    return scheme;
}
