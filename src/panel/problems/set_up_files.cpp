#include "panel/problems/set_up_files.h"

#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <string>

#include "core/model/experiment_state.h"
#include "core/setup/set_up_text.h"
#include "panel/controls.h"
#include "panel/dialogs/common_dialog.h"
#include "panel/dialogs/prompt.h"
#include "panel/entry/last_refusal.h"
#include "panel/entry/memory_refusal.h"
#include "panel/problems/file_replacement.h"
#include "panel/problems/set_up_replay.h"

namespace {

// The largest grid with a point in every cell takes about 600 kB.
constexpr qint64 LargestFile = 8 << 20;

void PrepareDialog(CommonDialog& dialog) {
    dialog.Filter = "All Files (*.*)|*.*|Text Files (*.txt)|*.txt";
    dialog.FilterIndex = 2;
}

// What a file holds, or else the reason why it is not read, as part of a sentence.
struct Content {
    std::string Text;
    std::string Reason = {};
};

// What the system makes up as it is read has no size, and its reader may wait for ever.
Content ContentOf(const QString& name) {
    const QFileInfo info(name);
    QFile file(name);
    if (!info.isFile() || !file.open(QIODevice::ReadOnly)) return {{}, "it cannot be read"};
    if (info.size() == 0) return {{}, "it is empty"};
    if (info.size() > LargestFile) return {{}, "it is too large"};
    const QByteArray content = file.read(LargestFile + 1);
    if (file.error() != QFileDevice::NoError) return {{}, "it cannot be read"};
    if (content.size() > LargestFile) return {{}, "it is too large"};
    return {content.toStdString()};
}

void NoteFileRefusal(Controls& controls, const std::string& press, const QString& name,
                     const std::string& reason) {
    NoteRefusal(controls, {press + " of " + QFileInfo(name).fileName().toStdString(), reason});
}

}  // namespace

void cmdWriteSetUp_Click(ExperimentState& state, Controls& controls) {
    CommonDialog& dialog = *controls.CommonDialog1;
    PrepareDialog(dialog);
    dialog.Objection = WhyNotWritable;
    dialog.Save();
    if (dialog.FileName.isEmpty()) return;
    const std::string reason = ReplaceFile(dialog.FileName, WriteSetUpText(state));
    if (reason.empty()) return;
    NoteFileRefusal(controls, "Write Set Up", dialog.FileName, reason);
    std::fprintf(stderr, "ternlow: %s is not written: %s\n", qPrintable(dialog.FileName),
                 reason.c_str());
}

void cmdReadSetUp_Click(ExperimentState& state, Controls& controls) {
    CommonDialog& dialog = *controls.CommonDialog1;
    PrepareDialog(dialog);
    dialog.Open();
    if (dialog.FileName.isEmpty()) return;
    const Content content = ContentOf(dialog.FileName);
    SetUpReading reading = content.Reason.empty() ? ReadSetUpText(content.Text, state.MaxGridCells)
                                                  : SetUpReading{{}, {}, content.Reason};
    if (!reading.Values) NoteFileRefusal(controls, "Read Set Up", dialog.FileName, reading.Reason);
    if (!reading.Message.empty()) ShowMessage(controls, reading.Message);
    if (!reading.Values) return;
    const SetUpValues& values = *reading.Values;
    if (!FindsMemory(state, controls, "The file", values.NGridCells, values.Periods,
                     values.NPlotsPerPeriod)) {
        return;
    }
    TakeSetUpValues(state, std::move(*reading.Values));
    ApplySetUp(state, controls);
}
