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
    HideRefusal(controls);
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
    HideRefusal(controls);
    if (!IsAsTheWindowCameUp(state, controls)) return;
    PutCaption(controls.lblStudentID, SoundWaveCaption(state, Now()));
}

void ComposeRiemannCaption(const ExperimentState& state, Controls& controls,
                           const RiemannProblem& problem) {
    HideRefusal(controls);
    if (!IsFree(state, controls)) return;
    PutCaption(controls.lblStudentID, RiemannCaption(state, problem, Now()));
}

void ShowRefusal(const ExperimentState& state, Controls& controls) {
    ShowMessageOver(controls.lblStudentID, RefusalCaption(state.Refusal));
}

void HideRefusal(Controls& controls) {
    TakeMessageAway(controls.lblStudentID);
}
