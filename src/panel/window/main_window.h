// The main window: it owns the experiment and makes every control of the panel.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <memory>

#include "core/model/experiment_state.h"
#include "panel/controls.h"
#include "panel/entry/last_refusal.h"
#include "panel/widgets/panel_scale.h"
#include "panel/window/panel_layout.h"

class SideWindows;

class frmTernlow : public QWidget {
public:
    explicit frmTernlow(const PanelScale& scale = PanelScale());
    ~frmTernlow() override;

    ExperimentState state;
    Controls controls;

    SideWindows& Beside() { return *sideWindows_; }

    // Shows the panel larger or smaller, at the factor that it has started with, or as large as the
    // screen. What the panel computes and the coordinates that it draws in stay what they are.
    void Zoom(bool larger);
    void ZoomBack();
    void ToggleFullScreen();
    const PanelScale& Shown() const { return shown_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void MakeButtons();
    void MakeTextBoxes();
    void MakeLabels();
    void MakeSurfaces();
    void MakeScrollBars();
    void MakeListBox();
    void MakeTimerAndDialog();
    void SetTabOrder();
    void StackControls();
    void ConnectBoxes();
    void ConnectPresses();
    void ConnectKeys();
    void ConnectTimer();
    void SpeakOfCell();
    void ShowWhetherPressesWait(bool wait);

    void ShowAt(const PanelScale& shown);
    void ShowInWindow(double factor);
    void LayOut();
    void LayOutList();
    QFont FontOf(const PanelFont& font) const;
    template <typename Row>
    void Dress(QWidget& control, const Row& row, const QString& spokenName) const;
    template <typename... Arguments>
    auto Runs(void (*handler)(ExperimentState&, Controls&, Arguments...));

    PanelScale scale_;     // that the surfaces are drawn in
    PanelScale shown_;     // that the panel is seen at
    double windowFactor_;  // while it does not fill the screen
    bool fillsScreen_ = false;
    LastRefusal lastRefusal_;
    QPixmap background_;
    std::unique_ptr<SideWindows> sideWindows_;
};
