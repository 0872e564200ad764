#include "verify/verification_report.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <fstream>
#include <vector>

#include "verify/trial_run.h"

namespace {

constexpr std::array<int, 4> Sizes = {100, 200, 400, 800};
constexpr double Gamma = 1.4;

// Mean absolute errors, the best that any of several public codes reaches on the problem at its
// best settings without a floor; 0 where none was recorded.
struct PublicCodes {
    double RhoAt100;
    double RhoAt400;
    double PAt400;
    double UxAt400;
    double EulerianRhoAt100;  // of those on a fixed grid, where these are others
    double EulerianRhoAt400;
};
// clang-format off
constexpr std::array<PublicCodes, 9> Public = {{
    {2.93e-3, 8.14e-4, 4.33e-4, 1.45e-3, 0, 0},
    {3.04e-2, 1.09e-2, 8.45e-3, 2.59e-2, 0, 0},
    {4.54e-3, 1.23e-3, 4.78e-4, 4.93e-3, 0, 0},
    {2.81e-2, 8.80e-3, 8.53e-4, 1.11e-3, 0, 0},
    {2.80e-2, 7.73e-3, 1.55,    6.46e-2, 0, 0},
    {2.07e-1, 6.15e-2, 3.10,    2.96e-2, 2.24e-1, 8.29e-2},
    {3.28e-3, 1.07e-3, 0,       0,       0, 0},
    {2.24e-1, 6.09e-2, 1.63,    8.63e-2, 2.91e-1, 1.34e-1},
    {0.171,   0.0550,  0,       0,       0.185, 0.0665},
}};
// clang-format on

// Of density on the moving and on the standing sound wave, 100 cells.
constexpr std::array<double, 2> PublicSound = {1.1e-7, 2.5e-10};

std::string Text(const char* format, ...) {
    std::array<char, 400> text = {};
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    return text.data();
}

std::string WithRatio(double error, double best) {
    return best > 0.0 ? Text("%.3g (%.2f)", error, error / best) : Text("%.3g", error);
}

struct Trial {
    Flow Result;
    Flow Exact;
    RunReport Report;
    Errors Found;
    double Jump;  // range of the exact density
};

Trial Measure(const LoadedScheme& scheme, const RunSettings& settings, Flow start, Flow exact) {
    Trial trial = {std::move(start), std::move(exact), {}, {}, 0.0};
    trial.Report = RunTrial(scheme, settings, trial.Result);
    trial.Found = Compare(trial.Result, trial.Exact);
    const auto first = trial.Exact.Rho.begin() + Flow::B;
    const auto [least, most] = std::minmax_element(first, first + trial.Exact.N);
    trial.Jump = *most - *least;
    return trial;
}

// Problems 0 to 7 are the shock tubes, 8 the blast waves.
Trial MeasureProblem(const LoadedScheme& scheme, std::size_t problem, int cells,
                     const std::string& referenceFile) {
    if (problem == 8)
        return Measure(scheme, BlastSettings(), BlastStart(cells),
                       BlastReference(referenceFile, cells));
    const ShockTube& tube = ShockTubes[problem];
    return Measure(scheme, ShockTubeSettings(tube), ShockTubeStart(tube, cells),
                   ShockTubeExact(tube, cells, Gamma));
}

const char* ProblemName(std::size_t problem) {
    return problem == 8 ? "Blast waves" : ShockTubes[problem].Name;
}

void WriteProblemRow(std::ostream& out, const LoadedScheme& scheme, std::size_t problem,
                     const std::string& referenceFile) {
    const PublicCodes& best = Public[problem];
    std::array<double, 4> rho = {};
    std::string tail;
    int floored = 0;
    for (std::size_t k = 0; k < Sizes.size(); ++k) {
        if (problem == 8 && 400 % Sizes[k] != 0) continue;
        const Trial trial = MeasureProblem(scheme, problem, Sizes[k], referenceFile);
        rho[k] = trial.Found.Rho;
        floored += trial.Report.Floored + (trial.Report.Finite ? 0 : 1000000);
        if (Sizes[k] != 400) continue;
        tail = WithRatio(trial.Found.P, best.PAt400) + " | " +
               WithRatio(trial.Found.Ux, best.UxAt400) +
               Text(" | %.3g | %.2f %% | %d + %d", trial.Found.Uy,
                    100.0 * trial.Found.Overshoot / trial.Jump, trial.Report.Steps,
                    trial.Report.Rejected);
    }
    const double order = std::log2(rho[0] / rho[2]) / 2.0;
    out << "| " << ProblemName(problem);
    for (const double error : rho) out << (error > 0.0 ? Text(" | %.3g", error) : " | ");
    out << Text(" | %.2f | %.3g | %.2f | %.3g | %.2f", order, best.RhoAt100, rho[0] / best.RhoAt100,
                best.RhoAt400, rho[2] / best.RhoAt400);
    if (best.EulerianRhoAt400 > 0.0)
        out << Text(" (%.2f, %.2f)", rho[0] / best.EulerianRhoAt100,
                    rho[2] / best.EulerianRhoAt400);
    out << " | " << tail << " | " << floored << " |\n";
}

void WriteSoundWaves(std::ostream& out, const LoadedScheme& scheme) {
    out << "\n| sound wave, R+ amplitude 0.01, t = 1 | 25 | 50 | 100 | 200 | order 50 to 100 | "
           "best public 100 |\n|---|---|---|---|---|---|---|\n";
    for (std::size_t wave = 0; wave < PublicSound.size(); ++wave) {
        const double velocity = wave == 0 ? 0.0 : -1.0;
        std::array<double, 4> rho = {};
        for (std::size_t k = 0; k < rho.size(); ++k) {
            const int cells = 25 << k;
            rho[k] = Measure(scheme, SoundWaveSettings(),
                             SoundWaveExact(cells, 0.01, velocity, Gamma, 0.0),
                             SoundWaveExact(cells, 0.01, velocity, Gamma, 1.0))
                         .Found.Rho;
        }
        out << Text("| U0 = %g | %.2g | %.2g | %.2g | %.2g | %.2f | %.2g |\n", velocity, rho[0],
                    rho[1], rho[2], rho[3], std::log2(rho[1] / rho[2]), PublicSound[wave]);
    }
}

// A curve or dots in a frame of 720 by 400 units.
class Picture {
public:
    Picture(std::ostream& out, double low, double high) : out_(out), low_(low), high_(high) {
        out_ << "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 760 440\" "
                "font-family=\"sans-serif\" font-size=\"13\">\n"
                "<rect width=\"760\" height=\"440\" fill=\"white\"/>\n"
                "<rect x=\"30\" y=\"25\" width=\"720\" height=\"400\" fill=\"none\" "
                "stroke=\"gray\"/>\n";
    }
    ~Picture() { out_ << "</svg>\n"; }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    void Title(const std::string& text) {
        out_ << "<text x=\"30\" y=\"18\">" << text << Text(", %.4g to %.4g", low_, high_)
             << "</text>\n";
    }
    void Line(const Flow& flow, const char* colour) {
        out_ << "<polyline fill=\"none\" stroke=\"" << colour << "\" points=\"";
        for (int cell = 1; cell <= flow.N; ++cell)
            out_ << Text("%.2f,%.2f ", X(flow, cell), Y(flow, cell));
        out_ << "\"/>\n";
    }
    void Dots(const Flow& flow, const char* colour, double radius) {
        for (int cell = 1; cell <= flow.N; ++cell)
            out_ << Text(
                "<circle cx=\"%.2f\" cy=\"%.2f\" r=\"%.1f\" fill=\"none\" stroke=\"%s\"/>\n",
                X(flow, cell), Y(flow, cell), radius, colour);
    }

private:
    static double X(const Flow& flow, int cell) { return 30.0 + 720.0 * (cell - 0.5) / flow.N; }
    double Y(const Flow& flow, int cell) const {
        return 415.0 - 380.0 * (flow.Rho[flow.At(cell)] - low_) / (high_ - low_);
    }

    std::ostream& out_;
    double low_;
    double high_;
};

}  // namespace

void WriteVerification(std::ostream& out, const std::string& referenceFile) {
    for (const SchemeKind kind : AllSchemes) {
        const LoadedScheme scheme(kind);
        out << "\n## " << SchemeName(kind)
            << "\n\n| problem | rho 100 | 200 | 400 | 800 | order | best public 100 | ratio | best "
               "public 400 | ratio (Eulerian codes) | p 400 (ratio) | u 400 (ratio) | transverse "
               "400 | "
               "overshoot 400 "
               "| steps + rejected | floored |\n"
               "|---|---|---|---|---|---|---|---|---|---|---|---|---|---|---|---|\n";
        for (std::size_t problem = 0; problem < Public.size(); ++problem)
            WriteProblemRow(out, scheme, problem, referenceFile);
        WriteSoundWaves(out, scheme);
    }
}

void DrawPictures(const std::string& folder, const std::string& referenceFile) {
    const LoadedScheme scheme(SchemeKind::Kestrel);
    for (std::size_t problem = 0; problem < Public.size(); ++problem) {
        const Trial coarse = MeasureProblem(scheme, problem, 100, referenceFile);
        const Trial fine = MeasureProblem(scheme, problem, 400, referenceFile);
        const auto first = fine.Exact.Rho.begin() + Flow::B;
        const auto [least, most] = std::minmax_element(first, first + fine.Exact.N);
        const double margin = 0.05 * (*most - *least);
        const std::string name = problem == 8 ? "blast" : "test" + std::to_string(problem + 1);
        std::ofstream file(folder + "/" + name + ".svg");
        Picture picture(file, *least - margin, *most + margin);
        picture.Title(std::string(ProblemName(problem)) +
                      ": density, solution (line), 100 cells (circles), 400 cells (dots)");
        picture.Line(fine.Exact, "black");
        picture.Dots(coarse.Result, "darkorange", 3.0);
        picture.Dots(fine.Result, "teal", 1.0);
    }
}
