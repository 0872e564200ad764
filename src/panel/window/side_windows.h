// The windows beside the panel, and the keys that open them.
#pragma once

#include <memory>

class GuideWindow;
class StateWindow;
class frmTernlow;

// F1 shows the guide, shift and F1 its page of keys, F3 the state of the panel in words. The
// windows are made when they are first asked for, read the panel's record and never write it, and
// are gone with this object.
class SideWindows {
public:
    explicit SideWindows(frmTernlow& form);
    ~SideWindows();
    SideWindows(const SideWindows&) = delete;
    SideWindows& operator=(const SideWindows&) = delete;

    GuideWindow& Guide();
    StateWindow& StateInWords();

    // The program ends with its last window.
    void Close();

private:
    frmTernlow& form_;
    std::unique_ptr<GuideWindow> guide_;
    std::unique_ptr<StateWindow> stateInWords_;
};
