#include "panel_promises.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <sstream>

#include "panel/window/main_window.h"

namespace {

// Remembers the first promise that was broken.
class Verdict {
public:
    template <typename... Figures>
    void Require(bool kept, const char* promise, const Figures&... figures) {
        if (kept || !broken_.empty()) return;
        std::ostringstream text;
        text.precision(17);
        text << promise;
        ((text << ' ' << figures), ...);
        broken_ = text.str();
    }
    const std::string& Broken() const { return broken_; }

private:
    std::string broken_;
};

bool IsPositive(double v) {
    return std::isfinite(v) && v > 0.0;
}

void CheckCells(const ExperimentState& state, Verdict& verdict) {
    for (int i = 0; i <= state.NGridCells + 1; ++i) {
        const bool isGas = IsPositive(state.Rho[i]) && IsPositive(state.P[i]);
        const bool isFinite = std::isfinite(state.Ux[i]) && std::isfinite(state.Uy[i]) &&
                              std::isfinite(state.FSmoke[i]);
        verdict.Require(isGas && isFinite, "cell, Rho, P, Ux, Uy, FSmoke:", i, state.Rho[i],
                        state.P[i], state.Ux[i], state.Uy[i], state.FSmoke[i]);
        verdict.Require(state.X[i] < state.X[i + 1], "cell, its edges:", i, state.X[i],
                        state.X[i + 1]);
    }
}

void CheckPoints(const ExperimentState& state, Verdict& verdict) {
    const int n = state.NGridCells;
    const int count = state.NSelected;
    verdict.Require(count >= 0 && count <= n, "NSelected:", count);
    verdict.Require(state.MSelList.Last() == n + 2, "end of MSelList:", state.MSelList.Last());
    if (!verdict.Broken().empty()) return;
    verdict.Require(state.MSelList[0] == 0 && state.MSelList[count + 1] == n + 1,
                    "closing entries:", state.MSelList[0], state.MSelList[count + 1]);
    for (int k = 0; k <= count + 1; ++k) {
        verdict.Require(k == 0 || state.MSelList[k] > state.MSelList[k - 1],
                        "entry, its cell, the one before:", k, state.MSelList[k],
                        state.MSelList[std::max(k - 1, 0)]);
        verdict.Require(IsPositive(state.RhoSelList[k]) && IsPositive(state.PSelList[k]) &&
                            std::isfinite(state.VxSelList[k]) && std::isfinite(state.XSelList[k]),
                        "entry, Rho, P, Vx, X:", k, state.RhoSelList[k], state.PSelList[k],
                        state.VxSelList[k], state.XSelList[k]);
    }
}

void CheckAxes(const ExperimentState& state, Verdict& verdict) {
    const auto check = [&](const char* axis, double lo, double hi) {
        verdict.Require(std::isfinite(lo) && std::isfinite(hi) && lo < hi, axis, lo, hi);
    };
    check("RhoMin, RhoMax:", state.RhoMin, state.RhoMax);
    check("PMin, PMax:", state.PMin, state.PMax);
    check("VXMin, VXMax:", state.VXMin, state.VXMax);
    verdict.Require(std::isfinite(state.RMinusMin) && std::isfinite(state.RMinusMax),
                    "R- axis:", state.RMinusMin, state.RMinusMax);
    // The density bar may stand below 0, on an axis that a rebuild began there: the box refuses
    // what it shows, and Select raises it to the floor.
    verdict.Require(std::isfinite(state.RhoSel) && std::isfinite(state.PSel) && state.PSel >= 0.0 &&
                        std::isfinite(state.VxSel),
                    "RhoSel, PSel, VxSel:", state.RhoSel, state.PSel, state.VxSel);
}

void CheckStore(const ExperimentState& state, Verdict& verdict) {
    const int stride = state.NGridCells + 2;
    const int last = state.StoredT.Last();
    verdict.Require(state.NStored >= 0 && state.NStored <= last + 1 &&
                        stride * state.NStored <= state.StoreCapacity,
                    "NStored, StoreCapacity:", state.NStored, state.StoreCapacity);
    verdict.Require(
        state.SRho.Last() == state.StoreCapacity && state.SEntropy.Last() == state.StoreCapacity,
        "store arrays, StoreCapacity:", state.SRho.Last(), state.StoreCapacity);
    verdict.Require(state.StoredStateNumber >= 0 && state.StoredStateNumber <= last,
                    "StoredStateNumber:", state.StoredStateNumber);
    verdict.Require(state.StoreOffset >= 0 && state.StoreOffset <= stride * (last + 1),
                    "StoreOffset:", state.StoreOffset);
    if (state.NStored == 0 || !verdict.Broken().empty()) return;
    const int base = stride * (state.NStored - 1);
    verdict.Require(std::isfinite(state.StoredT[state.NStored - 1]), "last StoredT");
    for (int i = base; i < base + stride; ++i) {
        // A test pressed over an old run leaves the count and clears what was stored.
        const bool isGas = state.SRho[base] == 0.0F || (state.SRho[i] > 0.0F && state.SP[i] > 0.0F);
        verdict.Require(isGas && std::isfinite(state.SUx[i]) && std::isfinite(state.SRPlus[i]) &&
                            std::isfinite(state.SRMinus[i]) && std::isfinite(state.SEntropy[i]),
                        "element of the last stored state:", i, state.SRho[i], state.SP[i],
                        state.SUx[i], state.SRPlus[i], state.SRMinus[i], state.SEntropy[i]);
    }
}

void CheckClock(const ExperimentState& state, Verdict& verdict) {
    verdict.Require(std::isfinite(state.Time) && state.Time >= 0.0, "Time:", state.Time);
    verdict.Require(IsPositive(state.DTime), "DTime:", state.DTime);
    verdict.Require(IsPositive(state.DTime0), "DTime0:", state.DTime0);
    verdict.Require(IsPositive(state.PeriodTime), "PeriodTime:", state.PeriodTime);
    verdict.Require(IsPositive(state.PlotInterval), "PlotInterval:", state.PlotInterval);
    verdict.Require(std::isfinite(state.TimeToPlot), "TimeToPlot:", state.TimeToPlot);
    verdict.Require(std::isfinite(state.TStop) && state.TStop >= 0.0, "TStop:", state.TStop);
    verdict.Require(state.CourantNumber > 0.0 && state.CourantNumber < 1.0,
                    "CourantNumber:", state.CourantNumber);
    verdict.Require(IsPositive(state.SoundSpeed0), "SoundSpeed0:", state.SoundSpeed0);
    verdict.Require(IsPositive(state.Periods) && state.NPlotsPerPeriod >= 1,
                    "Periods, NPlotsPerPeriod:", state.Periods, state.NPlotsPerPeriod);
}

void CheckFlags(const ExperimentState& state, Verdict& verdict) {
    for (const int busy : {state.hsbDensityBusy, state.hsbPressureBusy, state.hsbVelocityBusy,
                           state.hsbMSelectedBusy, state.txtDensityBusy, state.txtPressureBusy,
                           state.txtVelocityBusy, state.txtMSelectedBusy}) {
        verdict.Require(busy == 0, "a busy flag is up");
    }
    for (const int flag : {state.Stopped, state.SoundWaveMode, state.MeterOn, state.MultiplePlots,
                           state.SpaceTimeBig}) {
        verdict.Require(flag == 0 || flag == 1, "a flag is neither 0 nor 1:", flag);
    }
}

void CheckControls(const frmTernlow& form, Verdict& verdict) {
    const ExperimentState& state = form.state;
    const Controls& controls = form.controls;
    const QScrollBar& cells = *controls.hsbMSelected;
    verdict.Require(cells.minimum() == 1 && cells.maximum() == state.NGridCells,
                    "range of hsbMSelected:", cells.minimum(), cells.maximum());
    // A rebuild without points paints nothing, and it is the paints that bring the bar along.
    verdict.Require(cells.value() == state.MSelected || state.NSelected == 0,
                    "hsbMSelected, MSelected:", cells.value(), state.MSelected);
    for (const QScrollBar* bar :
         {controls.hsbDensity, controls.hsbPressure, controls.hsbVelocity}) {
        verdict.Require(bar->minimum() == -10000 && bar->maximum() == 10000,
                        "range of a value bar:", bar->minimum(), bar->maximum());
    }
    const QScrollBar& states = *controls.vsbStoredStateNumber;
    verdict.Require(states.minimum() == 0 && states.maximum() <= state.StoredT.Last() + 1,
                    "range of vsbStoredStateNumber:", states.minimum(), states.maximum());
    verdict.Require(
        controls.tmrMetronome->interval() == state.MSec && state.MSec >= 1 && state.MSec <= 2000,
        "interval, MSec:", controls.tmrMetronome->interval(), state.MSec);
    verdict.Require(!controls.tmrMetronome->signalsBlocked(), "the metronome is still held");
    verdict.Require(QApplication::activeModalWidget() == nullptr, "a box is still open");
    verdict.Require(controls.lstGrayVariable->currentRow() >= 0, "no gray variable is chosen");
    for (const QLineEdit* box : {controls.txtDensityMin, controls.txtDensityMax,
                                 controls.txtPressureMin, controls.txtPressureMax}) {
        verdict.Require(box->isHidden() == (state.SpaceTimeBig == 1), "boxes over the picture");
    }
}

}  // namespace

std::string BrokenPromise(const frmTernlow& form) {
    const ExperimentState& state = form.state;
    Verdict verdict;
    verdict.Require(state.NGridCells >= 6 && state.NGridCells <= state.MaxGridCells,
                    "NGridCells:", state.NGridCells);
    verdict.Require(state.MSelected >= 1 && state.MSelected <= state.NGridCells,
                    "MSelected, NGridCells:", state.MSelected, state.NGridCells);
    CheckFlags(state, verdict);
    CheckCells(state, verdict);
    CheckPoints(state, verdict);
    CheckAxes(state, verdict);
    CheckClock(state, verdict);
    CheckStore(state, verdict);
    CheckControls(form, verdict);
    return verdict.Broken();
}
