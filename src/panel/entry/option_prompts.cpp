#include "panel/entry/option_prompts.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/run/scheme_table.h"
#include "panel/controls.h"
#include "panel/dialogs/prompt.h"
#include "panel/help/guide_place.h"
#include "panel/plots/line_plots.h"
#include "panel/widgets/control_values.h"

namespace {

void AskInteger(Controls& controls, const std::string& message, const std::string& title,
                int& value) {
    const auto answer = ReadNumber(Prompt(controls, message, title, GeneralNumber(value)));
    if (answer) value = RoundToEven(*answer);
}

void AskBoundary(Controls& controls, const std::string& side, const std::string& title, int& type) {
    AskInteger(controls,
               "Type the value of the " + side +
                   " boundary condition type:  4=periodic, 1=reflecting, 2=continuation",
               title, type);
}

// A cancelled prompt gives `kept`.
std::string AskScheme(Controls& controls, const std::string& offered, const std::string& kept) {
    const std::string answer =
        Prompt(controls,
               "Type the name of the numerical scheme.  Choose from:  Kestrel (64-bit), Kestrel32, "
               "Heron32, or Plover (32-bit).",
               "Specify Scheme", offered);
    return answer.empty() ? kept : answer;
}

void AskConstant(Controls& controls, const std::string& kind, const std::string& name,
                 double& value) {
    const auto answer = ReadNumber(
        Prompt(controls, "Type the value of the PPM shock " + kind + " constant, " + name,
               "Get " + name, GeneralNumber(value)));
    if (answer && std::abs(*answer) <= LargestValue) value = *answer;
}

}  // namespace

void cmdBoundaryConditionType_Click(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) return;
    AskBoundary(controls, "left", "Get MnBdry", state.MnBdry);
    if (state.MnBdry == PeriodicBoundary) {
        state.MxBdry = PeriodicBoundary;
    } else {
        AskBoundary(controls, "right", "Get MxBdry", state.MxBdry);
    }
}

void cmdNumericalScheme_Click(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) return;
    state.SchemeName = AskScheme(controls, state.SchemeName, state.SchemeName);
    if (FindScheme(state.SchemeName) == nullptr) {
        state.SchemeName = "Kestrel";
        state.SchemeName = AskScheme(controls, "Kestrel", "Kestrel");
    }
    const auto meter =
        ReadNumber(Prompt(controls, "Do you want the meagflop/s meter to be turned on?",
                          "Type 1 for Mflop/s metering,  0 to run without this overhead:",
                          GeneralNumber(state.MeterOn)));
    if (meter) state.MeterOn = std::clamp(RoundToEven(*meter), 0, 1);
}

void cmdGetDiffConsts_Click(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) return;
    AskConstant(controls, "diffusion", "difcon", state.difcon);
    AskConstant(controls, "detection", "shkjmp", state.shkjmp);
    AskConstant(controls, "diffusion", "wavhaf", state.wavhaf);
}

void cmdGetTitle_Click(ExperimentState& state, Controls& controls) {
    state.TitleText = Prompt(
        controls, "Enter your name, the date, and a title for this experiment:", "Get ID and Title",
        "", PromptPlace::Centred);
    PutCaption(controls.lblStudentID, state.TitleText);
    state.TitleSet = 1;
}

void cmdDocumentation_Click(ExperimentState& /*state*/, Controls& controls) {
    ShowMessage(controls,
                "The documentation for this utility program is contained in the file\r\n"
                "Ternlow-Users-Guide-9-1-01.doc\r\n"
                "It is also available on the Web: press F1, or open " +
                    GuideAddress().toStdString() +
                    "\r\n"
                    "READ IT!!");
}

void cmdSinglePlots_Click(ExperimentState& state, Controls& controls) {
    state.MultiplePlots = 0;
    RepaintPlots(state, controls);
}

void cmdMultiplePlots_Click(ExperimentState& state, Controls& /*controls*/) {
    state.MultiplePlots = 1;
}
