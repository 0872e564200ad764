#include "verify/families/computed_reference.h"

#include <cmath>

#include "verify/peers/classic_ppm.h"
#include "verify/peers/weno_z.h"

ComputedReference ComputeReference(const FamilyProblem& problem, int finer) {
    const int cells = problem.Start.N();
    FamilyProblem fine = problem;
    fine.Start = problem.Finer(finer * cells);
    const std::vector<double> ppm = RunPeer(ClassicPpm("", true, true), fine).Rho;
    const std::vector<double> weno = RunPeer(WenoZ(), fine).Rho;
    ComputedReference reference = {std::vector<double>(problem.Start.Rho.size(), 0.0), 0.0};
    for (int k = 0; k < cells; ++k) {
        double difference = 0.0;
        for (int n = finer * k; n < finer * (k + 1); ++n) {
            reference.Density[k] += 0.5 * (ppm[n] + weno[n]) / finer;
            difference += (ppm[n] - weno[n]) / finer;
        }
        reference.Error += 0.5 * std::abs(difference) / cells;
    }
    return reference;
}
