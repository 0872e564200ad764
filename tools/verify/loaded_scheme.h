// The four scheme libraries behind one call: a step of a whole grid, cut into strips of any width.
#pragma once

#include <array>
#include <string>
#include <vector>

// A flow on a grid of N cells with B neighbour cells on either side. Element i of an array is cell
// i - B + 1, so that real cell 1 is element B; Edges has one element more.
struct Flow {
    static constexpr int B = 6;

    explicit Flow(int cells);
    std::size_t At(int cell) const { return static_cast<std::size_t>(cell + B - 1); }

    int N;
    std::vector<double> Edges;
    std::vector<double> Rho;
    std::vector<double> P;
    std::vector<double> Ux;
    std::vector<double> Uy;
    std::vector<double> Smoke;
};

// What a scheme is given besides the flow; the values at start are the instrument's defaults.
struct SchemeConstants {
    double Gamma = 1.4;
    double RhoFloor = 1e-8;
    double AuxFloor = 1e-8;
    double PFloor = 1e-8;
    double VFloor = 1e-8;
    double difcon = 0.3;
    double shkjmp = 0.2;
    double wavhaf = 1.0;
};

enum class SchemeKind { Kestrel, Kestrel32, Heron32, Plover };
constexpr std::array<SchemeKind, 4> AllSchemes = {SchemeKind::Kestrel, SchemeKind::Kestrel32,
                                                  SchemeKind::Heron32, SchemeKind::Plover};
const char* SchemeName(SchemeKind kind);
bool IsDouble(SchemeKind kind);
bool CarriesSmoke(SchemeKind kind);

// What one attempt at a step gives: the Courant number and the eight operation counts.
struct StepReport {
    double Courant = 0.0;
    std::array<int, 8> Ops = {};
};

class LoadedScheme {
public:
    // Loads the library by its plain name, over the caller's search path, as the instrument does;
    // a folder in front overrides the search. Throws std::runtime_error if it cannot.
    explicit LoadedScheme(SchemeKind kind, const std::string& folder = "");
    ~LoadedScheme();
    LoadedScheme(const LoadedScheme&) = delete;
    LoadedScheme& operator=(const LoadedScheme&) = delete;

    SchemeKind Kind() const { return kind_; }
    void* Entry() const { return entry_; }

    // The widest strip that the instrument gives this scheme.
    int WidestStrip() const { return IsDouble(kind_) ? 100 : 200; }

    // Advances cells 1 to N of the flow, whose neighbour zones must be filled, into next. Strips
    // are at most stripWidth wide (0: the instrument's own width).
    StepReport Advance(const Flow& flow, const SchemeConstants& constants, double timeStep,
                       Flow& next, int stripWidth = 0) const;

private:
    SchemeKind kind_;
    void* library_ = nullptr;
    void* entry_ = nullptr;
};
