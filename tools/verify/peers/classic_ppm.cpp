#include "verify/peers/classic_ppm.h"

#include <algorithm>
#include <cmath>

// Equations are those of J. Comput. Phys. 54, 174 (1984); so are the constants.
namespace {

constexpr double ContactPressure = 0.1;  // K0 in (3.2)
constexpr double ContactRise = 0.01;     // epsilon in (1.16)
constexpr double SteepenFactor = 20.0;   // eta(1) in (1.15)
constexpr double SteepenFrom = 0.05;     // eta(2)
constexpr double ShockRise = 0.33;       // epsilon in (A.1)
constexpr double FlattenFrom = 0.75;     // omega(1)
constexpr double FlattenFactor = 10.0;   // omega(2)

constexpr double SmallestShare = 1e-10;  // of a cell's own density or pressure, in traced states

using Row = std::vector<double>;

struct Parabola {
    double Left;
    double Right;
    double Six;  // a6 in (1.4)

    Parabola(double left, double right, double average)
        : Left(left), Right(right), Six(6.0 * (average - 0.5 * (left + right))) {}

    // Averages over the share of the cell next to its right and left edge (1.12).
    double AtRight(double share) const {
        return Right - 0.5 * share * (Right - Left - (1.0 - 2.0 / 3.0 * share) * Six);
    }
    double AtLeft(double share) const {
        return Left + 0.5 * share * (Right - Left + (1.0 - 2.0 / 3.0 * share) * Six);
    }
};

struct CellParabolas {
    Parabola Rho;
    Parabola P;
    Parabola U;
};

// Values at both edges of every cell, before a parabola is drawn through them.
struct EdgeValues {
    Row Left;
    Row Right;
};

// (1.7) and (1.8)
double LimitedSlope(const PeerGrid& grid, const Row& a, int j) {
    const double w0 = grid.Width(j - 1);
    const double w1 = grid.Width(j);
    const double w2 = grid.Width(j + 1);
    const double before = a[j] - a[j - 1];
    const double after = a[j + 1] - a[j];
    if (before * after <= 0.0) return 0.0;
    const double slope =
        w1 / (w0 + w1 + w2) *
        ((2.0 * w0 + w1) / (w2 + w1) * after + (w1 + 2.0 * w2) / (w0 + w1) * before);
    return std::copysign(std::min({std::abs(slope), 2.0 * std::abs(before), 2.0 * std::abs(after)}),
                         slope);
}

// (1.6)
EdgeValues Interpolate(const PeerGrid& grid, const Row& a, const Row& slope) {
    EdgeValues edges = {a, a};
    for (int j = 2; j + 3 < static_cast<int>(a.size()); ++j) {
        const double w0 = grid.Width(j - 1);
        const double w1 = grid.Width(j);
        const double w2 = grid.Width(j + 1);
        const double w3 = grid.Width(j + 2);
        const double inLeft = (w0 + w1) / (2.0 * w1 + w2);
        const double inRight = (w3 + w2) / (2.0 * w2 + w1);
        const double rise = a[j + 1] - a[j];
        const double edge = a[j] + w1 / (w1 + w2) * rise +
                            (2.0 * w2 * w1 / (w1 + w2) * (inLeft - inRight) * rise -
                             w1 * inLeft * slope[j + 1] + w2 * inRight * slope[j]) /
                                (w0 + w1 + w2 + w3);
        edges.Right[j] = edge;
        edges.Left[j + 1] = edge;
    }
    return edges;
}

// (1.17)
double SecondDifference(const PeerGrid& grid, const Row& a, int j) {
    const double w0 = grid.Width(j - 1);
    const double w1 = grid.Width(j);
    const double w2 = grid.Width(j + 1);
    return ((a[j + 1] - a[j]) / (w2 + w1) - (a[j] - a[j - 1]) / (w1 + w0)) / (w0 + w1 + w2);
}

// (1.14) to (1.16) and (3.2)
void SteepenContacts(const PeerGrid& grid, const Row& rho, const Row& p, const Row& slope,
                     EdgeValues& edges) {
    for (int j = 3; j + 3 < static_cast<int>(rho.size()); ++j) {
        const double rise = rho[j + 1] - rho[j - 1];
        const double lower = std::min(rho[j + 1], rho[j - 1]);
        const double pressureRise = std::abs(p[j + 1] - p[j - 1]) / std::min(p[j + 1], p[j - 1]);
        if (grid.Gamma * ContactPressure * std::abs(rise) / lower < pressureRise) continue;
        const double before = SecondDifference(grid, rho, j - 1);
        const double after = SecondDifference(grid, rho, j + 1);
        if (before * after >= 0.0 || std::abs(rise) <= ContactRise * lower) continue;
        const double toLeft = 0.5 * (grid.Width(j - 1) + grid.Width(j));
        const double toRight = 0.5 * (grid.Width(j) + grid.Width(j + 1));
        const double third = -(after - before) / (toLeft + toRight) *
                             (toLeft * toLeft * toLeft + toRight * toRight * toRight) / rise;
        const double eta = std::clamp(SteepenFactor * (third - SteepenFrom), 0.0, 1.0);
        edges.Left[j] += eta * (rho[j - 1] + 0.5 * slope[j - 1] - edges.Left[j]);
        edges.Right[j] += eta * (rho[j + 1] - 0.5 * slope[j + 1] - edges.Right[j]);
    }
}

// How far each cell is drawn to its average, 0 to 1 (A.1, A.2).
Row Flattening(const Row& p, const Row& u) {
    Row raw(p.size(), 0.0);
    Row share(p.size(), 0.0);
    const int count = static_cast<int>(p.size());
    for (int j = 2; j + 2 < count; ++j) {
        const double rise = p[j + 1] - p[j - 1];
        const bool shock =
            std::abs(rise) > ShockRise * std::min(p[j + 1], p[j - 1]) && u[j - 1] > u[j + 1];
        if (!shock) continue;
        const double wide = p[j + 2] - p[j - 2];
        const double steepness = wide == 0.0 ? 1.0 : rise / wide;
        raw[j] = std::clamp((steepness - FlattenFrom) * FlattenFactor, 0.0, 1.0);
    }
    for (int j = 3; j + 3 < count; ++j)
        share[j] = std::max(raw[j], raw[p[j + 1] > p[j - 1] ? j - 1 : j + 1]);
    return share;
}

// (1.10), with the edge values drawn to the average first (4.1).
Parabola Monotone(double left, double right, double average, double flattening) {
    left += flattening * (average - left);
    right += flattening * (average - right);
    if ((right - average) * (average - left) <= 0.0) return {average, average, average};
    const double rise = right - left;
    const double bend = rise * (average - 0.5 * (left + right));
    if (bend > rise * rise / 6.0) left = 3.0 * average - 2.0 * right;
    if (bend < -rise * rise / 6.0) right = 3.0 * average - 2.0 * left;
    return {left, right, average};
}

std::vector<CellParabolas> DrawParabolas(const PeerGrid& grid, const Row& rho, const Row& p,
                                         const Row& u, bool flattened, bool steepened) {
    const int count = static_cast<int>(rho.size());
    const auto slopesOf = [&](const Row& a) {
        Row slope(a.size(), 0.0);
        for (int j = 1; j + 1 < count; ++j) slope[j] = LimitedSlope(grid, a, j);
        return slope;
    };
    const Row rhoSlope = slopesOf(rho);
    EdgeValues rhoEdges = Interpolate(grid, rho, rhoSlope);
    const EdgeValues pEdges = Interpolate(grid, p, slopesOf(p));
    const EdgeValues uEdges = Interpolate(grid, u, slopesOf(u));
    if (steepened) SteepenContacts(grid, rho, p, rhoSlope, rhoEdges);
    const Row flattening = flattened ? Flattening(p, u) : Row(rho.size(), 0.0);

    std::vector<CellParabolas> parabolas;
    parabolas.reserve(rho.size());
    for (int j = 0; j < count; ++j)
        parabolas.push_back({Monotone(rhoEdges.Left[j], rhoEdges.Right[j], rho[j], flattening[j]),
                             Monotone(pEdges.Left[j], pEdges.Right[j], p[j], flattening[j]),
                             Monotone(uEdges.Left[j], uEdges.Right[j], u[j], flattening[j])});
    return parabolas;
}

// The state on one side of an edge (3.5 to 3.7). side is 1 where the cell lies to the left of the
// edge and -1 where it lies to the right. share is the time step over the width of the cell.
Primitive Trace(const CellParabolas& cell, const Primitive& average, double gamma, double share,
                double side) {
    const double c = SoundSpeed(average, gamma);
    const auto averageOver = [&](double speed) {
        const double swept = std::max(0.0, side * speed * share);
        if (side > 0.0)
            return Primitive{cell.Rho.AtRight(swept), cell.P.AtRight(swept), cell.U.AtRight(swept)};
        return Primitive{cell.Rho.AtLeft(swept), cell.P.AtLeft(swept), cell.U.AtLeft(swept)};
    };
    const Primitive reference = averageOver(average.U + side * c);
    const double z2 = gamma * reference.P * reference.Rho;
    const double z = std::sqrt(z2);
    const auto soundBeta = [&](double sign) {
        const double speed = average.U + sign * c;
        if (side * speed <= 0.0) return 0.0;
        const Primitive s = averageOver(speed);
        return -sign / (2.0 * z) * (reference.U - s.U + sign * (reference.P - s.P) / z);
    };
    const double plus = soundBeta(1.0);
    const double minus = soundBeta(-1.0);
    double entropy = 0.0;
    if (side * average.U > 0.0) {
        const Primitive s = averageOver(average.U);
        entropy = (reference.P - s.P) / z2 + 1.0 / reference.Rho - 1.0 / s.Rho;
    }
    const double volume = 1.0 / reference.Rho - (entropy + plus + minus);
    const double leastRho = SmallestShare * average.Rho;
    return {volume > 0.0 ? std::max(1.0 / volume, leastRho) : reference.Rho,
            std::max(reference.P + z2 * (plus + minus), SmallestShare * average.P),
            reference.U + z * (plus - minus)};
}

// The mass flux through a shock that takes the state to pressure p (2.4), used for fans too.
double MassFlux(const Primitive& s, double gamma, double p) {
    return std::sqrt(gamma * s.P * s.Rho * (1.0 + (gamma + 1.0) / (2.0 * gamma) * (p - s.P) / s.P));
}

// The state at an edge at rest between two states: pressure and velocity between the outer waves by
// Newton's method, then the region of the wave pattern that holds the edge. Inside a fan the state
// is interpolated (section 2 and 3).
Primitive SolveEdge(const Primitive& left, const Primitive& right, double gamma) {
    const double least = SmallestShare * std::min(left.P, right.P);
    const double zLeft = std::sqrt(gamma * left.P * left.Rho);
    const double zRight = std::sqrt(gamma * right.P * right.Rho);
    double p =
        std::max(least, (zRight * left.P + zLeft * right.P + zLeft * zRight * (left.U - right.U)) /
                            (zLeft + zRight));
    double uLeft = left.U;
    double uRight = right.U;
    for (int n = 0; n < 30; ++n) {
        const double wLeft = MassFlux(left, gamma, p);
        const double wRight = MassFlux(right, gamma, p);
        uLeft = left.U - (p - left.P) / wLeft;
        uRight = right.U + (p - right.P) / wRight;
        const double slopeLeft = 2.0 * wLeft * wLeft * wLeft / (wLeft * wLeft + zLeft * zLeft);
        const double slopeRight =
            2.0 * wRight * wRight * wRight / (wRight * wRight + zRight * zRight);
        const double next = std::max(
            least, p - slopeLeft * slopeRight * (uRight - uLeft) / (slopeLeft + slopeRight));
        const double change = std::abs(next - p);
        p = next;
        if (change <= 1e-12 * p) break;
    }
    const double u = 0.5 * (uLeft + uRight);

    // From here on seen from the side that the edge lies on, velocities counted outward.
    const double side = u > 0.0 ? -1.0 : 1.0;
    const Primitive& outer = u > 0.0 ? left : right;
    const double w = MassFlux(outer, gamma, p);
    const double c = SoundSpeed(outer, gamma);
    const double volume = 1.0 / outer.Rho - (p - outer.P) / (w * w);
    const double rho = volume > 0.0 ? 1.0 / volume : outer.Rho;
    const Primitive inner = {rho, p, u};
    const bool shock = p > outer.P;
    const double head = shock ? side * outer.U + w / outer.Rho : side * outer.U + c;
    const double tail = shock ? head : side * u + SoundSpeed(inner, gamma);
    if (head <= 0.0) return outer;
    if (tail >= 0.0) return inner;
    const double part = head / (head - tail);
    return {outer.Rho + part * (inner.Rho - outer.Rho), outer.P + part * (inner.P - outer.P),
            outer.U + part * (inner.U - outer.U)};
}

}  // namespace

void ClassicPpm::Step(PeerGrid& grid, double timeStep) const {
    const std::size_t count = grid.Cells.size();
    std::vector<Primitive> cells(count);
    Row rho(count);
    Row p(count);
    Row u(count);
    for (std::size_t i = 0; i < count; ++i) {
        cells[i] = ToPrimitive(grid.Cells[i], grid.Gamma);
        rho[i] = cells[i].Rho;
        p[i] = cells[i].P;
        u[i] = cells[i].U;
    }
    const auto parabolas = DrawParabolas(grid, rho, p, u, flattened_, steepened_);

    std::vector<Conserved> flux(count);  // flux[i] passes the left edge of cell i
    for (int i = grid.First(); i <= grid.Last() + 1; ++i) {
        const Primitive left =
            Trace(parabolas[i - 1], cells[i - 1], grid.Gamma, timeStep / grid.Width(i - 1), 1.0);
        const Primitive right =
            Trace(parabolas[i], cells[i], grid.Gamma, timeStep / grid.Width(i), -1.0);
        flux[i] = FluxOf(SolveEdge(left, right, grid.Gamma), grid.Gamma);
    }
    for (int i = grid.First(); i <= grid.Last(); ++i) {
        const double share = timeStep / grid.Width(i);
        grid.Cells[i].Mass += share * (flux[i].Mass - flux[i + 1].Mass);
        grid.Cells[i].Momentum += share * (flux[i].Momentum - flux[i + 1].Momentum);
        grid.Cells[i].Energy += share * (flux[i].Energy - flux[i + 1].Energy);
    }
}
