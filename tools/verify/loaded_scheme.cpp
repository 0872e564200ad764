#include "verify/loaded_scheme.h"

#include <dlfcn.h>

#include <algorithm>
#include <stdexcept>

#include "verify/strip_call.h"

namespace {

struct LibraryNames {
    const char* Scheme;
    const char* File;
    const char* Symbol;
};

const LibraryNames& NamesOf(SchemeKind kind) {
    static constexpr std::array<LibraryNames, 4> names = {
        LibraryNames{"Kestrel", "libKestrel64.so", "KESTREL64"},
        LibraryNames{"Kestrel32", "libKestrel32.so", "KESTREL32"},
        LibraryNames{"Heron32", "libHeron32.so", "HERON32"},
        LibraryNames{"Plover", "libPlover.so", "PLOVER"}};
    return names[static_cast<std::size_t>(kind)];
}

template <typename Float>
StepReport AdvanceStrips(SchemeKind kind, void* entry, const Flow& flow,
                         const SchemeConstants& constants, double timeStep, Flow& next,
                         int widest) {
    const int strips = (flow.N + widest - 1) / widest;
    const int fullWidth = (flow.N + strips - 1) / strips;
    const std::array<std::vector<double>*, 5> to = {&next.Rho, &next.P, &next.Ux, &next.Uy,
                                                    &next.Smoke};
    StepReport report;
    Float courant = 0;
    for (int offset = 0; offset < flow.N; offset += fullWidth) {
        const int real = std::min(fullWidth, flow.N - offset);
        PlainStorage storage;
        StripCall<Float> call(kind, kind == SchemeKind::Heron32 ? fullWidth : real, storage);
        call.Load(flow, offset);
        call.SetNumbers(constants, timeStep);
        call.Courant = courant;
        call.Ops = report.Ops;
        call.Run(entry);
        courant = call.Courant;
        report.Ops = call.Ops;
        for (std::size_t k = 0; k < to.size(); ++k)
            for (int cell = 1; cell <= real; ++cell)
                (*to[k])[next.At(offset + cell)] =
                    static_cast<double>(call.Results[k][cell + Flow::B - 1]);
    }
    report.Courant = static_cast<double>(courant);
    return report;
}

}  // namespace

Flow::Flow(int cells)
    : N(cells),
      Edges(static_cast<std::size_t>(cells + 2 * B + 1)),
      Rho(Edges.size() - 1),
      P(Rho.size()),
      Ux(Rho.size()),
      Uy(Rho.size()),
      Smoke(Rho.size()) {}

const char* SchemeName(SchemeKind kind) {
    return NamesOf(kind).Scheme;
}
bool IsDouble(SchemeKind kind) {
    return kind == SchemeKind::Kestrel;
}
bool CarriesSmoke(SchemeKind kind) {
    return kind != SchemeKind::Plover;
}

LoadedScheme::LoadedScheme(SchemeKind kind, const std::string& folder)
    : kind_(kind),
      library_(dlopen(((folder.empty() ? "" : folder + "/") + NamesOf(kind).File).c_str(),
                      RTLD_NOW | RTLD_LOCAL)) {
    if (library_ != nullptr) entry_ = dlsym(library_, NamesOf(kind).Symbol);
    if (entry_ == nullptr) throw std::runtime_error(dlerror());
}

LoadedScheme::~LoadedScheme() {
    dlclose(library_);
}

StepReport LoadedScheme::Advance(const Flow& flow, const SchemeConstants& constants,
                                 double timeStep, Flow& next, int stripWidth) const {
    const int widest = stripWidth > 0 ? stripWidth : WidestStrip();
    return IsDouble(kind_)
               ? AdvanceStrips<double>(kind_, entry_, flow, constants, timeStep, next, widest)
               : AdvanceStrips<float>(kind_, entry_, flow, constants, timeStep, next, widest);
}
