#include "panel/plots/experiment_caption.h"

#include <QDateTime>
#include <QLocale>

#include "core/model/experiment_state.h"
#include "core/picture/caption_text.h"
#include "panel/controls.h"
#include "panel/widgets/control_values.h"

namespace {

Moment Now() {
    const QDateTime now = QDateTime::currentDateTime();
    const QLocale locale = QLocale::system();
    return {locale.toString(now.date(), QLocale::ShortFormat).toStdString(),
            locale.toString(now.time(), QLocale::ShortFormat).toStdString()};
}

bool IsAsTheWindowCameUp(const ExperimentState& state, const Controls& controls) {
    return CaptionOf(controls.lblStudentID) == state.StudentIDDefault;
}

// True as long as the user has not put a title into the label.
bool IsFree(const ExperimentState& state, const Controls& controls) {
    return state.TitleSet == 0 || IsAsTheWindowCameUp(state, controls);
}

}  // namespace

void ComposeExperimentCaption(const ExperimentState& state, Controls& controls) {
    TakeStopMessageAway(state, controls);
    if (!IsFree(state, controls)) return;
    if (state.SoundWaveMode == 1) {
        PutCaption(controls.lblStudentID, SoundWaveCaption(state, Now()));
    } else if (state.NSelected == 6) {
        PutCaption(controls.lblStudentID, SixPointCaption(state, Now()));
    } else if (state.NSelected == 4) {
        PutCaption(controls.lblStudentID, FourPointCaption(state, Now()));
    }
}

void ComposeSoundWaveCaption(const ExperimentState& state, Controls& controls) {
    TakeStopMessageAway(state, controls);
    if (!IsAsTheWindowCameUp(state, controls)) return;
    PutCaption(controls.lblStudentID, SoundWaveCaption(state, Now()));
}

void ComposeRiemannCaption(const ExperimentState& state, Controls& controls,
                           const RiemannProblem& problem) {
    TakeStopMessageAway(state, controls);
    if (!IsFree(state, controls)) return;
    PutCaption(controls.lblStudentID, RiemannCaption(state, problem, Now()));
}

void ShowStopMessage(ExperimentState& state, Controls& controls, const std::string& message) {
    TakeStopMessageAway(state, controls);
    state.CaptionBeforeStop = CaptionOf(controls.lblStudentID);
    PutCaption(controls.lblStudentID, message);
    // As the label gives it back: bytes that are no text, say of a path, come back as other ones.
    state.StopMessage = CaptionOf(controls.lblStudentID);
}

void TakeStopMessageAway(const ExperimentState& state, Controls& controls) {
    if (CaptionOf(controls.lblStudentID) != state.StopMessage) return;
    PutCaption(controls.lblStudentID, state.CaptionBeforeStop);
}
