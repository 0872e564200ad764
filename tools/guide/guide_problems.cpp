#include "guide/guide_problems.h"

#include <QFile>

#include "core/model/experiment_state.h"
#include "panel/widgets/control_values.h"
#include "panel/window/main_window.h"

const std::vector<GuideSetUp>& GuideSetUps() {
    static const std::vector<GuideSetUp> setUps = {
        {"shock-tube",
         "0.24",
         "800",
         "1",
         {{1, "1", "1", "0"},
          {200, "1", "1", "0"},
          {201, "0.125", "0.1", "0"},
          {400, "0.125", "0.1", "0"}}},
        {"pressure-hill",
         "2",
         "200",
         "1",
         {{1, "1", "1", "0"},
          {180, "1", "1", "0"},
          {200, "1", "1.2", "0"},
          {220, "1", "1", "0"},
          {400, "1", "1", "0"}}},
        {"density-hill",
         "0.6",
         "200",
         "4",
         {{1, "1", "1", "0.5"},
          {60, "1", "1", "0.5"},
          {100, "3", "1", "0.5"},
          {140, "1", "1", "0.5"},
          {400, "1", "1", "0.5"}}},
        {"shock-meets-dense-gas",
         "2",
         "150",
         "1",
         {{1, "1", "10", "0"},
          {60, "1", "10", "0"},
          {61, "1", "1", "0"},
          {240, "1", "1", "0"},
          {241, "5", "1", "0"},
          {320, "5", "1", "0"},
          {321, "1", "1", "0"},
          {400, "1", "1", "0"}}},
    };
    return setUps;
}

namespace {

void SelectPoint(Panel& panel, const TypedPoint& point) {
    panel.Type("txtMSelected", QString::number(point.Cell));
    panel.Type("txtDensity", point.Density);
    panel.Type("txtPressure", point.Pressure);
    panel.Type("txtVelocity", point.Velocity);
    panel.Press("cmdSelect");
}

}  // namespace

void DrawByHand(Panel& panel, const GuideSetUp& setUp) {
    panel.Type("txtNPeriods", setUp.TimeUnits);
    panel.Type("txtNPlotsPerPeriod", setUp.PlotsPerTimeUnit);
    panel.Press("cmdReset");
    SelectPoint(panel, setUp.Points.front());
    SelectPoint(panel, setUp.Points.back());
    for (std::size_t k = 1; k + 1 < setUp.Points.size(); ++k) SelectPoint(panel, setUp.Points[k]);
}

void WriteSetUp(Panel& panel, const QString& path) {
    QFile::remove(path);
    const BoxAnswers answers({path});
    panel.Press("cmdWriteSetUp");
}

void ReadSetUp(Panel& panel, const QString& path) {
    const BoxAnswers answers({path});
    panel.Press("cmdReadSetUp");
}

void SetUpSoundWave(Panel& panel, const TypedWave& wave) {
    const BoxAnswers answers({wave.RPlus, wave.RPlusFrequency, wave.RMinus, wave.RMinusFrequency,
                              wave.R0, wave.R0Frequency, wave.Velocity});
    panel.Press("cmdSoundWave");
}

void ChooseBoundaries(Panel& panel, const char* type) {
    const BoxAnswers answers({type, type});
    panel.Press("cmdBoundaryConditionType");
}

bool RunWhole(Panel& panel) {
    panel.Press("cmdBegin");
    return panel.Form().state.Stopped == 0 && panel.RunToEnd();
}

void ShowVariable(Panel& panel, const char* name) {
    PutListText(panel.Form().controls.lstGrayVariable, name);
}
