#include "panel/window/side_windows.h"

#include <QShortcut>

#include "panel/help/guide_window.h"
#include "panel/state_window/state_window.h"
#include "panel/window/main_window.h"

SideWindows::SideWindows(frmTernlow& form) : form_(form) {
    const auto onKeys = [&form](const char* keys, const auto& act) {
        auto* key = new QShortcut(QKeySequence(keys), &form);
        key->setAutoRepeat(false);
        QObject::connect(key, &QShortcut::activated, &form, act);
    };
    onKeys("F1", [this] { Guide().ShowPage("users-guide.html"); });
    onKeys("Shift+F1", [this] { Guide().ShowPage("users-guide.html#keys"); });
    onKeys("F3", [this] {
        StateInWords().show();
        StateInWords().activateWindow();
    });
}

SideWindows::~SideWindows() = default;

void SideWindows::Close() {
    guide_.reset();
    stateInWords_.reset();
}

GuideWindow& SideWindows::Guide() {
    if (!guide_) guide_ = std::make_unique<GuideWindow>();
    return *guide_;
}

StateWindow& SideWindows::StateInWords() {
    if (!stateInWords_) {
        stateInWords_ =
            std::make_unique<StateWindow>(form_.state, ReadLastRefusal(form_.controls), nullptr);
    }
    return *stateInWords_;
}
