#include "panel/problems/set_up_files.h"

#include <QFile>
#include <QFileInfo>
#include <optional>
#include <string>

#include "core/model/experiment_state.h"
#include "core/setup/set_up_text.h"
#include "panel/controls.h"
#include "panel/dialogs/common_dialog.h"
#include "panel/dialogs/prompt.h"
#include "panel/problems/file_replacement.h"
#include "panel/problems/set_up_replay.h"

namespace {

// The largest grid with a point in every cell takes about 600 kB.
constexpr qint64 LargestFile = 8 << 20;

void PrepareDialog(CommonDialog& dialog) {
    dialog.Filter = "All Files (*.*)|*.*|Text Files (*.txt)|*.txt";
    dialog.FilterIndex = 2;
}

// Nothing for what is no plain file, is empty, cannot be read or is far too long. What the system
// makes up as it is read has no size, and its reader may wait for ever.
std::optional<std::string> ContentOf(const QString& name) {
    const QFileInfo info(name);
    if (!info.isFile() || info.size() == 0 || info.size() > LargestFile) return std::nullopt;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    const QByteArray content = file.read(LargestFile + 1);
    if (content.size() > LargestFile) return std::nullopt;
    return content.toStdString();
}

}  // namespace

void cmdWriteSetUp_Click(ExperimentState& state, Controls& controls) {
    CommonDialog& dialog = *controls.CommonDialog1;
    PrepareDialog(dialog);
    dialog.Save();
    if (!dialog.FileName.isEmpty()) ReplaceFile(dialog.FileName, WriteSetUpText(state));
}

void cmdReadSetUp_Click(ExperimentState& state, Controls& controls) {
    CommonDialog& dialog = *controls.CommonDialog1;
    PrepareDialog(dialog);
    dialog.Open();
    if (dialog.FileName.isEmpty()) return;
    const std::optional<std::string> text = ContentOf(dialog.FileName);
    if (!text) return;
    SetUpReading reading = ReadSetUpText(*text, state.MaxGridCells);
    if (!reading.Message.empty()) ShowMessage(controls, reading.Message);
    if (!reading.Values) return;
    TakeSetUpValues(state, std::move(*reading.Values));
    ApplySetUp(state, controls);
}
