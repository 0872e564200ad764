#include "core/picture/caption_text.h"

#include "core/model/experiment_state.h"
#include "core/model/number_text.h"
#include "core/setup/riemann_problem.h"

namespace {

constexpr const char* Comma = ",     ";        // between two items
constexpr const char* WideComma = ",       ";  // before the date, the time or the name
constexpr const char* NewLine = "\r\n";

std::string Item(const char* name, double value) {
    return name + FormatNumber(value, "####0.0#####");
}

std::string NextItem(const char* name, double value) {
    return Comma + Item(name, value);
}

// The first items of the first line of the six-point and the four-point caption.
std::string LeftState(const ExperimentState& state) {
    return Item("RhoL = ", state.RhoSelList[2]) + NextItem("PL = ", state.PSelList[2]) +
           NextItem("UxL = ", state.VxSelList[2]);
}

// The first items of the second line.
std::string RightState(const ExperimentState& state) {
    return Item("RhoR = ", state.RhoSelList[5]) + NextItem("PR = ", state.PSelList[5]) +
           NextItem("UxR = ", state.VxSelList[5]);
}

}  // namespace

std::string SoundWaveCaption(const ExperimentState& state, const Moment& now) {
    const char* amplitude = "##0.0#####";
    return "R+ amplitude = " + FormatNumber(state.RPlusAmp, amplitude) + Comma +
           "R- amplitude = " + FormatNumber(state.RMinusAmp, amplitude) + Comma +
           "R0 amplitude = " + FormatNumber(state.R0Amp, amplitude) + Comma +
           "average velocity, u0 = " + FormatNumber(state.U0, "###0.0####") + "     " + now.Date +
           "    " + now.Time + "    " + state.StudentName;
}

std::string SixPointCaption(const ExperimentState& state, const Moment& now) {
    return LeftState(state) + NextItem("XJumpL = ", state.X[state.MSelList[3]]) +
           NextItem("RhoM = ", state.RhoSelList[4]) + NextItem("UxM = ", state.VxSelList[4]) +
           NextItem("Gamma = ", state.Gamma) + WideComma + now.Date + "   " + now.Time + NewLine +
           RightState(state) + NextItem("XJumpR = ", state.X[state.MSelList[5]]) +
           NextItem("PM = ", state.PSelList[4]) + NextItem("UyM = ", 0.0) +
           NextItem("TStop = ", state.TStop) + WideComma + state.StudentName;
}

std::string FourPointCaption(const ExperimentState& state, const Moment& now) {
    return LeftState(state) + NextItem("XL = ", state.X[1]) +
           NextItem("XJump = ", state.X[state.MSelList[3]]) + WideComma +
           Item("Gamma = ", state.Gamma) + now.Date + "   " + now.Time + NewLine +
           RightState(state) + NextItem("XR = ", state.X[state.NGridCells + 1]) +
           NextItem("TStop = ", state.TStop) + WideComma + state.StudentName;
}

std::string RiemannCaption(const ExperimentState& state, const RiemannProblem& problem,
                           const Moment& now) {
    return Item("RhoL = ", problem.RhoL) + NextItem("PL = ", problem.PL) +
           NextItem("UxL = ", problem.UxL) + NextItem("UyL = ", problem.UyL) +
           NextItem("XL = ", problem.XL) + NextItem("XJump = ", problem.XJump) + WideComma +
           now.Date + "       " + Item("Gamma = ", state.Gamma) + WideComma + NewLine +
           Item("RhoR = ", problem.RhoR) + NextItem("PR = ", problem.PR) +
           NextItem("UxR = ", problem.UxR) + NextItem("UyR = ", problem.UyR) +
           NextItem("XR = ", problem.XR) + NextItem("TStop = ", problem.TStop) + WideComma +
           now.Time + "    " + state.StudentName;
}

std::string RefusalReason(const RunRefusal& refusal) {
    if (refusal.Kind == RefusalKind::SchemeMissing) return refusal.Trouble;
    const char* reason = "";
    switch (refusal.Kind) {
        case RefusalKind::CourantNotANumber:
            reason = "its Courant number is not a number";
            break;
        case RefusalKind::CourantTooLarge:
            reason = "its Courant number stays at 1 or more, however short the step";
            break;
        case RefusalKind::ResultNotFinite:
            reason = "it left a cell without a finite result";
            break;
        case RefusalKind::None:
        case RefusalKind::SchemeMissing:
            break;
    }
    return "the scheme " + refusal.Scheme + " can take no step from this state: " + reason;
}

std::string RefusalCaption(const RunRefusal& refusal) {
    return "The run has stopped: " + RefusalReason(refusal) + "." + NewLine +
           "Press Restart, then choose a scheme by the red button below.";
}
