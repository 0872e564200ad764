#include "panel/window/refusal_watch.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

#include "core/model/experiment_state.h"
#include "core/picture/state_sentences.h"
#include "panel/controls.h"
#include "panel/entry/last_refusal.h"

namespace {

struct WatchedPress {
    QPushButton* Controls::*Button;
    Press Kind;
};

constexpr WatchedPress Presses[] = {
    {&Controls::cmdBegin, Press::Begin},
    {&Controls::cmdContinue, Press::Continue},
    {&Controls::cmdBoundaryConditionType, Press::Bdrys},
    {&Controls::cmdNumericalScheme, Press::NumericalScheme},
    {&Controls::cmdGetDiffConsts, Press::GetDiffConsts},
    {&Controls::cmdSelect, Press::Select},
    {&Controls::cmdReset, Press::Reset},
    {&Controls::cmdSoundWave, Press::SoundWave},
};

struct WatchedBox {
    QLineEdit* Controls::*Box;
    Entry Kind;
};

constexpr WatchedBox Boxes[] = {
    {&Controls::txtNGridCells, Entry::NGridCells},
    {&Controls::txtMSelected, Entry::MSelected},
    {&Controls::txtDensity, Entry::Density},
    {&Controls::txtPressure, Entry::Pressure},
    {&Controls::txtVelocity, Entry::Velocity},
    {&Controls::txtCourantNumber, Entry::CourantNumber},
    {&Controls::txtMSec, Entry::MSec},
    {&Controls::txtNPeriods, Entry::NPeriods},
    {&Controls::txtNPlotsPerPeriod, Entry::NPlotsPerPeriod},
    {&Controls::txtStoredStateNumber, Entry::StoredStateNumber},
};

constexpr qsizetype LongestQuote = 40;  // letters of what was typed

void NotePress(const ExperimentState& state, Controls& controls, Press press) {
    const std::string why = PressTrouble(state, press);
    if (!why.empty()) NoteRefusal(controls, {NameOf(press), why});
}

void NoteEntry(const ExperimentState& state, Controls& controls, Entry entry, const QString& text) {
    const std::string box = NameOf(entry) + " \"";
    const std::string why = EntryTrouble(state, entry, text.toStdString());
    if (!why.empty()) {
        NoteRefusal(controls, {box + text.left(LongestQuote).toStdString() + "\"", why,
                               ValueInForce(state, entry)});
    } else if (ReadLastRefusal(controls).What.starts_with(box)) {
        NoteRefusal(controls, {});
    }
}

}  // namespace

void WatchRefusals(QObject& owner, const ExperimentState& state, Controls& controls) {
    for (const WatchedPress& row : Presses) {
        QObject::connect(controls.*row.Button, &QPushButton::clicked, &owner,
                         [&state, &controls, &row] { NotePress(state, controls, row.Kind); });
    }
    // The toolkit tells of an edit by the user before it tells that the text has changed.
    for (const WatchedBox& row : Boxes) {
        QObject::connect(controls.*row.Box, &QLineEdit::textEdited, &owner,
                         [&state, &controls, &row](const QString& text) {
                             NoteEntry(state, controls, row.Kind, text);
                         });
    }
    QObject::connect(controls.vsbStoredStateNumber, &QScrollBar::actionTriggered, &owner,
                     [&state, &controls] { NotePress(state, controls, Press::StoredStateBar); });
}
