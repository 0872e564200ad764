// The main window: it owns the experiment and makes every control of the panel.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <memory>

#include "core/model/experiment_state.h"
#include "panel/controls.h"
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

protected:
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
    void ShowWhetherPressesWait(bool wait);

    QFont FontOf(const PanelFont& font) const;
    template <typename Row>
    void Dress(QWidget& control, const Row& row, const QString& spokenName) const;
    template <typename... Arguments>
    auto Runs(void (*handler)(ExperimentState&, Controls&, Arguments...));

    PanelScale scale_;
    QPixmap background_;
    std::unique_ptr<SideWindows> sideWindows_;
};
