// The four schemes as something to count through; what there is to know of each stands in core.
#pragma once

#include <array>

#include "core/run/scheme_table.h"

enum class SchemeKind { Kestrel, Kestrel32, Heron32, Plover };  // in the order of the table
constexpr std::array<SchemeKind, Schemes.size()> AllSchemes = {
    SchemeKind::Kestrel, SchemeKind::Kestrel32, SchemeKind::Heron32, SchemeKind::Plover};

constexpr const SchemeRow& RowOf(SchemeKind kind) {
    return Schemes[static_cast<std::size_t>(kind)];
}
constexpr const char* SchemeName(SchemeKind kind) {
    return RowOf(kind).Name;
}
constexpr bool IsDouble(SchemeKind kind) {
    return RowOf(kind).FloatBits == 64;
}
constexpr bool CarriesSmoke(SchemeKind kind) {
    return RowOf(kind).CarriesSmoke;
}
