// The exact solution of a Riemann problem of a gamma-law gas.
#pragma once

#include <vector>

// One uniform state: density, pressure, velocity along the grid, velocity across it. A density or
// a pressure of 0 is a vacuum.
struct GasState {
    double Rho = 0.0;
    double P = 0.0;
    double Ux = 0.0;
    double Uy = 0.0;

    bool IsVacuum() const { return !(Rho > 0.0 && P > 0.0); }
};

double SoundSpeed(const GasState& state, double gamma);

enum class WaveKind { Shock, Fan, Contact };

// A wave between two uniform states: it fills the speeds x/t from From to To, which are equal for a
// shock and a contact. Where a fan ends in a vacuum its inner speed is that of the edge of the gas.
struct ExactWave {
    WaveKind Kind;
    double From;
    double To;
};

// The self-similar solution of a jump from left to right, as a function of (x - jump) / t: two
// shocks, two fans or one of each, around a contact; fans that leave a vacuum between them, and a
// vacuum on one side. gamma > 1. The pressure between is found by bisection of its logarithm, which
// no ratio of pressures or densities defeats.
class ExactRiemann {
public:
    ExactRiemann(const GasState& left, const GasState& right, double gamma);

    GasState At(double speed) const;

    // From left to right, without those of no strength. Equal states have none.
    const std::vector<ExactWave>& Waves() const { return waves_; }

    // The uniform states left of, between and right of the waves: one more than there are waves. A
    // vacuum is a state of zeros.
    std::vector<GasState> States() const;

    // The speeds between which the solution is smooth, rising: the ends of all waves.
    std::vector<double> Breaks() const;

    bool HasVacuum() const { return vacuum_; }
    double StarPressure() const { return starP_; }  // 0 around a vacuum
    double StarVelocity() const { return starU_; }  // of the contact; none around a vacuum

private:
    GasState Beside(const GasState& state, double side, double speed) const;
    ExactWave OuterWave(const GasState& state, double side) const;

    GasState left_;
    GasState right_;
    double gamma_;
    bool vacuum_ = false;
    double starP_ = 0.0;
    double starU_ = 0.0;
    std::vector<ExactWave> waves_;
};
