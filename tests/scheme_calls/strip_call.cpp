#include "scheme_calls/strip_call.h"

#include <algorithm>
#include <type_traits>

namespace {

template <typename Float>
Float* TakeFloats(ArrayStorage& storage, std::size_t count) {
    return static_cast<Float*>(storage.Take(count * sizeof(Float)));
}

template <typename Float>
void Copy(const std::vector<double>& from, int offset, std::size_t count, Float* to) {
    const auto first = static_cast<std::size_t>(offset);
    for (std::size_t i = 0; i < count; ++i)
        to[i] = first + i < from.size() ? static_cast<Float>(from[first + i]) : Float(0);
}

}  // namespace

template <typename Float>
StripCall<Float>::StripCall(SchemeKind kind, int width, ArrayStorage& storage)
    : Edges(nullptr), UzResult(nullptr), kind_(kind), width_(width) {
    Edges = TakeFloats<Float>(storage, Cells() + 1);
    for (Float*& line : Lines) line = TakeFloats<Float>(storage, Cells());
    const bool hasRows = kind != SchemeKind::Heron32;
    for (Float*& rows : Rows) rows = hasRows ? TakeFloats<Float>(storage, 25 * Cells()) : nullptr;
    for (Float*& result : Results) result = TakeFloats<Float>(storage, Cells() + 1);
    UzResult = TakeFloats<Float>(storage, Cells() + 1);
}

template <typename Float>
void StripCall<Float>::Load(const Flow& flow, int offset) {
    Copy(flow.Edges, offset, Cells() + 1, Edges);
    const std::array<const std::vector<double>*, 5> from = {&flow.Rho, &flow.P, &flow.Ux, &flow.Uy,
                                                            &flow.Smoke};
    for (std::size_t k = 0; k < from.size(); ++k) Copy(*from[k], offset, Cells(), Lines[k]);
    if (Rows[0] == nullptr) return;
    for (std::size_t k = 0; k < 4; ++k)
        for (std::size_t row = 0; row < 25; ++row)
            std::copy_n(Lines[k], Cells(), Rows[k] + row * Cells());
}

template <typename Float>
void StripCall<Float>::SetNumbers(const SchemeConstants& c, double timeStep) {
    const std::array<double, 9> wide = {timeStep, c.Gamma,  c.RhoFloor, c.AuxFloor, c.PFloor,
                                        c.VFloor, c.difcon, c.shkjmp,   c.wavhaf};
    std::transform(wide.begin(), wide.end(), Numbers.begin(),
                   [](double value) { return static_cast<Float>(value); });
}

namespace {

template <typename Float, typename Entry>
void RunKestrel(StripCall<Float>& c, Entry* entry, const int* width) {
    const auto& n = c.Numbers;
    entry(c.Edges, c.Rows[0], c.Rows[1], c.Rows[2], c.Rows[3], c.Rows[4], c.Lines[4], c.Results[0],
          c.Results[1], c.Results[2], c.Results[3], c.UzResult, c.Results[4], &n[0], &c.Courant,
          &n[1], &n[2], &n[3], &n[4], &n[5], &n[6], &n[7], &n[8], width, &Flow::B, c.Ops.data());
}

void RunHeron(StripCall<float>& c, Heron32Entry* entry, const int* width) {
    const auto& n = c.Numbers;
    entry(c.Edges, c.Lines[0], c.Lines[1], c.Lines[2], c.Lines[3], c.Lines[3], c.Lines[4],
          c.Results[0], c.Results[1], c.Results[2], c.Results[3], c.UzResult, c.Results[4], &n[0],
          &c.Courant, &n[1], &n[2], &n[3], &n[4], &n[5], width, &Flow::B, c.Ops.data());
}

void RunPlover(StripCall<float>& c, PloverEntry* entry, const int* width) {
    const auto& n = c.Numbers;
    const float* rho = c.Lines[0];
    const float* p = c.Lines[1];
    const float* x = c.Lines[2];
    const float* y = c.Lines[3];
    const float* z = c.Rows[4] + 12 * c.Cells();
    entry(c.Edges, rho, rho, rho, rho, rho, p, p, p, p, p, x, x, x, x, x, y, y, y, y, y, y, y, z, z,
          z, z, z, z, z, c.Results[0], c.Results[1], c.Results[2], c.Results[3], c.UzResult, &n[0],
          &c.Courant, &n[1], &n[2], &n[3], &n[4], &n[5], width, &Flow::B, c.Ops.data());
}

}  // namespace

template <typename Float>
void StripCall<Float>::Run(void* entry) {
    if constexpr (std::is_same_v<Float, double>) {
        RunKestrel(*this, reinterpret_cast<Kestrel64Entry*>(entry), &width_);
    } else if (kind_ == SchemeKind::Kestrel32) {
        RunKestrel(*this, reinterpret_cast<Kestrel32Entry*>(entry), &width_);
    } else if (kind_ == SchemeKind::Heron32) {
        RunHeron(*this, reinterpret_cast<Heron32Entry*>(entry), &width_);
    } else {
        RunPlover(*this, reinterpret_cast<PloverEntry*>(entry), &width_);
    }
}

template class StripCall<double>;
template class StripCall<float>;
