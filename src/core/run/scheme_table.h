// The four difference schemes: their names, and what there is to know of each without calling it.
#pragma once

#include <array>
#include <string_view>

struct SchemeRow {
    const char* Name;        // as the user types it
    const char* Library;     // the shared library's base name, "Kestrel64" of libKestrel64.so
    const char* EntryPoint;  // the one function that it exports
    int FloatBits;           // of the floats that it computes with
    bool CarriesSmoke;       // else the smoke is gone after its first step
};

// clang-format off
constexpr std::array<SchemeRow, 4> Schemes{{
    {"Kestrel",   "Kestrel64", "KESTREL64", 64, true},
    {"Kestrel32", "Kestrel32", "KESTREL32", 32, true},
    {"Heron32",   "Heron32",   "HERON32",   32, true},
    {"Plover",    "Plover",    "PLOVER",    32, false},
}};
// clang-format on

// The row of that name, null if there is none.
constexpr const SchemeRow* FindScheme(std::string_view name) {
    for (const SchemeRow& row : Schemes) {
        if (name == row.Name) return &row;
    }
    return nullptr;
}
