#include "integration/scheme_library.h"

#include <dlfcn.h>

namespace {

template <typename Entry>
Entry* FindEntry(const char* file, const char* name) {
    void* library = dlopen(file, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) return nullptr;
    return reinterpret_cast<Entry*>(dlsym(library, name));
}

}  // namespace

SchemeLibrary LoadSchemeLibrary(const std::string& schemeName) {
    SchemeLibrary scheme;
    if (schemeName == "Kestrel") {
        scheme.Kestrel64 = FindEntry<Kestrel64Entry>("libKestrel64.so", "KESTREL64");
    } else if (schemeName == "Kestrel32") {
        scheme.Kestrel32 = FindEntry<Kestrel32Entry>("libKestrel32.so", "KESTREL32");
    } else if (schemeName == "Heron32") {
        scheme.Heron32 = FindEntry<Heron32Entry>("libHeron32.so", "HERON32");
    } else if (schemeName == "Plover") {
        scheme.Plover = FindEntry<PloverEntry>("libPlover.so", "PLOVER");
    }
    return scheme;
}
