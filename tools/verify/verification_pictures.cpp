#include "verify/verification_pictures.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>
#include <vector>

#include "core/picture/svg_document.h"
#include "verify/families/text.h"
#include "verify/measurements.h"

namespace {

constexpr SvgFrame Frame{30.0, 25.0, 720.0, 400.0};
constexpr double Margin = 10.0;  // above and below the curve

// Densities of cells 1..cells as points in the frame.
std::vector<DrawnPoint> PointsOf(const OffsetArray<double>& rho, int cells, double low,
                                 double high) {
    std::vector<DrawnPoint> points;
    for (int i = 1; i <= cells; ++i) {
        const double share = (rho[i] - low) / (high - low);
        points.push_back({Frame.X + Frame.Width * (i - 0.5) / cells,
                          Frame.Y + Frame.Height - Margin - (Frame.Height - 2 * Margin) * share});
    }
    return points;
}

void WriteWhole(const std::string& name, const std::string& text) {
    std::ofstream file(name);
    file << text;
    if (!file.flush()) throw std::runtime_error("cannot write " + name);
}

}  // namespace

std::string PictureName(std::size_t problem) {
    return problem == BlastWaves ? "blast" : "test" + std::to_string(problem + 1);
}

void DrawPictures(const std::string& folder, const std::string& referenceFile) {
    const SchemeLibrary library = LoadOrThrow("Kestrel");
    for (std::size_t problem = 0; problem < ProblemCount; ++problem) {
        const Measured coarse = Measure(library, problem, 100, referenceFile);
        const Measured fine = Measure(library, problem, 400, referenceFile);
        const double* first = fine.Exact.Rho.At(1);
        const auto [least, most] = std::minmax_element(first, first + 400);
        const double room = 0.05 * (*most - *least);
        const double low = *least - room;
        const double high = *most + room;
        SvgDocument picture(760.0, 440.0);
        picture.Rectangle(Frame, "none", "gray");
        picture.Text({Frame.X, 18.0},
                     ProblemName(problem) +
                         ": density, solution (line), 100 cells (circles), 400 cells (dots)" +
                         Text(", %.4g to %.4g", low, high));
        picture.Polyline(PointsOf(fine.Exact.Rho, 400, low, high), "black");
        for (const DrawnPoint& point : PointsOf(coarse.State.Rho, 100, low, high)) {
            picture.Circle(point, 3.0, "none", "darkorange");
        }
        for (const DrawnPoint& point : PointsOf(fine.State.Rho, 400, low, high)) {
            picture.Circle(point, 1.0, "none", "teal");
        }
        WriteWhole(folder + "/" + PictureName(problem) + ".svg", picture.Whole());
    }
}
