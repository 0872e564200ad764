#include "batch/figures_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ostream>
#include <string>

namespace {

using Row = std::vector<std::string>;

std::string Short(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.4g", value);
    return text.data();
}

std::string Short(const std::optional<double>& value) {
    return value ? Short(*value) : "-";
}

// Of the density error, from the line before; "-" where there is none to compare with.
std::string OrderOf(const TableLine& line, const TableLine* before) {
    if (before == nullptr || before->Series != line.Series) return "-";
    const RunFigures& coarse = before->Figures;
    const RunFigures& fine = line.Figures;
    const bool fits = coarse.Cells != fine.Cells && coarse.L1Density && fine.L1Density &&
                      *coarse.L1Density > 0.0 && *fine.L1Density > 0.0;
    if (!fits) return "-";
    return Short(std::log(*coarse.L1Density / *fine.L1Density) /
                 std::log(static_cast<double>(fine.Cells) / coarse.Cells));
}

Row RowOf(const TableLine& line, const TableLine* before) {
    const RunFigures& f = line.Figures;
    return {f.Problem,
            f.Scheme,
            std::to_string(f.Cells),
            Short(f.Courant),
            Short(f.Time),
            std::to_string(f.Steps),
            std::to_string(f.Rejected),
            std::to_string(f.Floored),
            Short(f.L1Density),
            Short(f.L1Pressure),
            Short(f.L1Velocity),
            OrderOf(line, before),
            Short(f.MassDrift),
            Short(f.MomentumDrift),
            Short(f.EnergyDrift),
            Short(f.Seconds),
            Short(f.UpdatesPerSecond)};
}

}  // namespace

void PrintFigures(std::ostream& out, const std::vector<TableLine>& lines) {
    if (lines.empty()) return;
    std::vector<Row> rows = {{"problem", "scheme", "cells", "courant", "time", "steps", "rejected",
                              "floored", "l1 density", "l1 pressure", "l1 velocity", "order",
                              "mass drift", "mom. drift", "energy drift", "seconds", "updates/s"}};
    for (std::size_t k = 0; k < lines.size(); ++k) {
        rows.push_back(RowOf(lines[k], k > 0 ? &lines[k - 1] : nullptr));
    }
    std::vector<std::size_t> widths(rows.front().size());
    for (const Row& row : rows) {
        for (std::size_t c = 0; c < row.size(); ++c) widths[c] = std::max(widths[c], row[c].size());
    }
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t c = 0; c < row.size(); ++c) {
            const std::string blanks(widths[c] - row[c].size(), ' ');
            const bool isName = c < 2;
            line += (c > 0 ? "  " : "") + (isName ? row[c] + blanks : blanks + row[c]);
        }
        out << line << "\n";
    }
}
