// The exact solution of a Riemann problem of a gamma-law gas, and its averages over the cells of a
// grid, against which the schemes are measured.
#pragma once

#include <vector>

// One uniform state: density, pressure, velocity along the grid, velocity across it.
struct GasState {
    double Rho;
    double P;
    double Ux;
    double Uy;
};

// The self-similar solution of a jump from left to right, as a function of (x - jump) / t.
class ExactRiemann {
public:
    ExactRiemann(const GasState& left, const GasState& right, double gamma);

    GasState At(double speed) const;

    // The speeds between which the solution is smooth: ends of fans, shocks and the contact.
    const std::vector<double>& Breaks() const { return breaks_; }
    double StarPressure() const { return starP_; }
    double StarVelocity() const { return starU_; }

private:
    GasState Beside(const GasState& state, double side, double speed) const;
    void AddBreaks(const GasState& state, double side);

    GasState left_;
    GasState right_;
    double gamma_;
    double starP_ = 0.0;
    double starU_ = 0.0;
    bool vacuum_ = false;
    std::vector<double> breaks_;
};

// Averages of the four variables over [from, to] at the given time after the jump at x = jump
// broke. The integral is split at the breaks, so that it is as good as the quadrature of smooth
// parts (about 1e-12).
GasState ExactCellAverage(const ExactRiemann& solution, double jump, double time, double from,
                          double to);
