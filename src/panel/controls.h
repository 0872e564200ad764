// The controls of the window, by the names under which every procedure knows them.
#pragma once

class CommonDialog;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QScrollBar;
class QTimer;
class Surface;
struct LastRefusal;

// No control is owned here and none is missing once the window stands.
struct Controls {
    QPushButton* cmdBegin = nullptr;
    QPushButton* cmdPause = nullptr;
    QPushButton* cmdContinue = nullptr;
    QPushButton* cmdRestart = nullptr;
    QPushButton* cmdNumericalScheme = nullptr;
    QPushButton* cmdBoundaryConditionType = nullptr;
    QPushButton* cmdGetDiffConsts = nullptr;
    QPushButton* cmdGetTitle = nullptr;
    QPushButton* cmdDocumentation = nullptr;
    QPushButton* cmdSinglePlots = nullptr;
    QPushButton* cmdMultiplePlots = nullptr;
    QPushButton* cmdReadSetUp = nullptr;
    QPushButton* cmdWriteSetUp = nullptr;
    QPushButton* cmdSoundWave = nullptr;
    QPushButton* cmdSelect = nullptr;
    QPushButton* cmdDeselect = nullptr;
    QPushButton* cmdReset = nullptr;
    QPushButton* cmdTest1 = nullptr;
    QPushButton* cmdTest2 = nullptr;
    QPushButton* cmdTest3 = nullptr;
    QPushButton* cmdTest4 = nullptr;
    QPushButton* cmdTest5 = nullptr;
    QPushButton* cmdTest6 = nullptr;
    QPushButton* cmdTest7 = nullptr;
    QPushButton* cmdTest8 = nullptr;

    QLineEdit* txtNGridCells = nullptr;
    QLineEdit* txtMSelected = nullptr;
    QLineEdit* txtDensity = nullptr;
    QLineEdit* txtPressure = nullptr;
    QLineEdit* txtVelocity = nullptr;
    QLineEdit* txtCourantNumber = nullptr;
    QLineEdit* txtMSec = nullptr;
    QLineEdit* txtNPeriods = nullptr;
    QLineEdit* txtNPlotsPerPeriod = nullptr;
    QLineEdit* txtStoredStateNumber = nullptr;
    QLineEdit* txtTime = nullptr;
    QLineEdit* txtDensityMin = nullptr;
    QLineEdit* txtDensityMax = nullptr;
    QLineEdit* txtPressureMin = nullptr;
    QLineEdit* txtPressureMax = nullptr;
    QLineEdit* txtVelocityMin = nullptr;
    QLineEdit* txtVelocityMax = nullptr;

    QLabel* lblNGridCells = nullptr;
    QLabel* lblMSelected = nullptr;
    QLabel* lblDensity = nullptr;
    QLabel* lblPressure = nullptr;
    QLabel* lblVelocity = nullptr;
    QLabel* lblCourantNumber = nullptr;
    QLabel* lblMSec = nullptr;
    QLabel* lblNPeriods = nullptr;
    QLabel* lblNPlotsPerPeriod = nullptr;
    QLabel* lblStoredState = nullptr;
    QLabel* lblDensityPlot = nullptr;
    QLabel* lblPressurePlot = nullptr;
    QLabel* lblVelocityPlot = nullptr;
    QLabel* lblDensitySpaceTimePlot = nullptr;
    QLabel* lblStudentID = nullptr;

    Surface* pctDensityPlot = nullptr;
    Surface* pctPressurePlot = nullptr;
    Surface* pctVelocityPlot = nullptr;
    Surface* pctSpaceTime = nullptr;

    QScrollBar* hsbMSelected = nullptr;
    QScrollBar* hsbDensity = nullptr;
    QScrollBar* hsbPressure = nullptr;
    QScrollBar* hsbVelocity = nullptr;
    QScrollBar* vsbStoredStateNumber = nullptr;

    QListWidget* lstGrayVariable = nullptr;
    QTimer* tmrMetronome = nullptr;
    CommonDialog* CommonDialog1 = nullptr;

    LastRefusal* Refused = nullptr;  // no control: what was refused last
};
