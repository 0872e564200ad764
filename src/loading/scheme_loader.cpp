#include "loading/scheme_loader.h"

#include <dlfcn.h>

#include "core/run/scheme_table.h"

namespace {

// The address of the entry point; null if there is none, and scheme.Trouble is then what the loader
// says: that names the file it has found and what is wrong with it.
void* FindEntryPoint(const SchemeRow& row, const std::string& folder, SchemeLibrary& scheme) {
    const std::string file = (folder.empty() ? "" : folder + "/") + "lib" + row.Library + ".so";
    void* library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    void* entry = library != nullptr ? dlsym(library, row.EntryPoint) : nullptr;
    if (entry == nullptr) {
        const char* said = dlerror();
        scheme.Trouble = said != nullptr ? said : std::string(row.EntryPoint) + " is nowhere";
        if (library != nullptr) dlclose(library);
        return nullptr;
    }
    const auto* middleRowOnly = static_cast<const int*>(dlsym(library, "READS_MIDDLE_ROW_ONLY"));
    scheme.ReadsMiddleRowOnly = middleRowOnly != nullptr && *middleRowOnly != 0;
    return entry;
}

template <typename Entry>
void Set(Entry*& entry, void* address) {
    entry = reinterpret_cast<Entry*>(address);
}

}  // namespace

SchemeLibrary LoadSchemeLibrary(const std::string& schemeName) {
    return LoadSchemeLibrary(schemeName, "");
}

SchemeLibrary LoadSchemeLibrary(const std::string& schemeName, const std::string& folder) {
    SchemeLibrary scheme;
    const SchemeRow* row = FindScheme(schemeName);
    if (row == nullptr) {
        scheme.Trouble = "there is no scheme \"" + schemeName + "\"";
        return scheme;
    }
    void* entry = FindEntryPoint(*row, folder, scheme);
    if (entry == nullptr) {
        scheme.Trouble = "the scheme " + schemeName + " cannot be loaded (" + scheme.Trouble + ")";
    } else if (schemeName == "Kestrel") {
        Set(scheme.Kestrel64, entry);
    } else if (schemeName == "Kestrel32") {
        Set(scheme.Kestrel32, entry);
    } else if (schemeName == "Heron32") {
        Set(scheme.Heron32, entry);
    } else {
        Set(scheme.Plover, entry);
    }
    return scheme;
}
