#include "panel/problems/sound_wave_button.h"

#include <cmath>
#include <optional>
#include <string>

#include "core/model/boundary_types.h"
#include "core/model/experiment_state.h"
#include "core/model/limits.h"
#include "core/model/number_text.h"
#include "core/model/run_stage.h"
#include "core/setup/problems.h"
#include "core/setup/sound_wave.h"
#include "panel/controls.h"
#include "panel/dialogs/prompt.h"
#include "panel/plots/experiment_caption.h"
#include "panel/plots/line_plots.h"
#include "panel/problems/point_buttons.h"
#include "panel/widgets/control_values.h"
#include "panel/widgets/surface.h"

namespace {

// What a press writes before it is known whether the waves are possible.
struct SoundWaveSettings {
    explicit SoundWaveSettings(const ExperimentState& state)
        : Mode(state.SoundWaveMode),
          MnBdry(state.MnBdry),
          MxBdry(state.MxBdry),
          Waves(WavesOf(state)) {}

    void PutBack(ExperimentState& state) const {
        state.SoundWaveMode = Mode;
        state.MnBdry = MnBdry;
        state.MxBdry = MxBdry;
        TakeWaves(state, Waves);
    }

    int Mode, MnBdry, MxBdry;
    SoundWaves Waves;
};

// False for an empty answer, which is what Cancel gives.
bool AskNumber(Controls& controls, const std::string& message, const std::string& title,
               double& value) {
    const std::string given = Prompt(controls, message, title, GeneralNumber(value));
    const auto answer = ReadNumber(given);
    if (answer && std::abs(*answer) <= LargestValue) value = *answer;
    return !given.empty();
}

bool AskAmplitude(Controls& controls, const std::string& wave, double& value) {
    return AskNumber(controls, "Type the amplitude of the " + wave + " Riemann invariant",
                     "Get " + wave + " Amplitude", value);
}

void AskFrequency(Controls& controls, const std::string& wave, int& value) {
    const std::string message = "Type the frequency of the " + wave +
                                " Riemann invariant  (1 = fundamental,  2 = first harmonic, etc.):";
    const auto answer =
        ReadNumber(Prompt(controls, message, "Get " + wave + " Frequency", GeneralNumber(value)));
    if (answer && RoundToEven(*answer) >= 1) value = RoundToEven(*answer);
}

// False if the first question is cancelled: there is to be no sound wave. Later on Cancel keeps the
// value that was asked for.
bool AskForWaves(ExperimentState& state, Controls& controls) {
    if (!AskAmplitude(controls, "R+", state.RPlusAmp)) return false;
    AskFrequency(controls, "R+", state.RPlusFreq);
    AskAmplitude(controls, "R-", state.RMinusAmp);
    AskFrequency(controls, "R-", state.RMinusFreq);
    AskAmplitude(controls, "R0", state.R0Amp);
    AskFrequency(controls, "R0", state.R0Freq);
    AskNumber(controls, "Type the average velocity", "Get U0 Value", state.U0);
    return true;
}

struct PlotCaptions {
    std::string Density, Pressure, Velocity;
};

// The plots are spoken of by their captions.
void PutPlotCaption(QLabel* label, Surface* plot, const std::string& caption) {
    PutCaption(label, caption);
    plot->setAccessibleName(QString::fromStdString(caption + " plot").simplified());
}

void PutPlotCaptions(Controls& controls, const PlotCaptions& captions) {
    PutPlotCaption(controls.lblDensityPlot, controls.pctDensityPlot, captions.Density);
    PutPlotCaption(controls.lblPressurePlot, controls.pctPressurePlot, captions.Pressure);
    PutPlotCaption(controls.lblVelocityPlot, controls.pctVelocityPlot, captions.Velocity);
}

}  // namespace

void cmdSoundWave_Click(ExperimentState& state, Controls& controls) {
    if (!IsBeforeRun(state)) return;
    const SoundWaveSettings former(state);
    const PlotCaptions formerCaptions{CaptionOf(controls.lblDensityPlot),
                                      CaptionOf(controls.lblPressurePlot),
                                      CaptionOf(controls.lblVelocityPlot)};
    state.SoundWaveMode = 1;
    state.MnBdry = PeriodicBoundary;
    state.MxBdry = PeriodicBoundary;
    PutPlotCaptions(controls,
                    {"R+  Riemann Invariant", "P / (Rho^Gamma)", "R-  Riemann Invariant"});
    if (!AskForWaves(state, controls) || !IntegrateSoundWave(state)) {
        former.PutBack(state);
        PutPlotCaptions(controls, formerCaptions);
        return;
    }
    state.Refusal = {};
    ComposeSoundWaveCaption(state, controls);
    cmdReset_Click(state, controls);
    InitSoundWave(state, controls);
}

void InitSoundWave(ExperimentState& state, Controls& controls) {
    if (state.SoundWaveMode == 0) return;
    BuildSoundWave(state);
    ClearAndPaintPlots(state, controls);
}
