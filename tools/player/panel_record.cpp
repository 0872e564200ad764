#include "panel_record.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <type_traits>

#include "panel/widgets/surface.h"
#include "panel/window/main_window.h"

namespace {

// FNV-1a over words of eight bytes.
class Hash {
public:
    void Take(const void* data, std::size_t size) {
        const auto* bytes = static_cast<const unsigned char*>(data);
        for (std::size_t at = 0; at < size; at += sizeof(std::uint64_t)) {
            std::uint64_t word = 0;
            std::memcpy(&word, bytes + at, std::min(sizeof word, size - at));
            value_ = (value_ ^ word) * 0x100000001b3U;
            value_ ^= value_ >> 29;
        }
    }
    template <typename T>
    void Take(const T& value) {
        static_assert(std::is_arithmetic_v<T>);
        Take(&value, sizeof value);
    }
    void Take(const QString& text) {
        Take(static_cast<int>(text.size()));
        Take(text.utf16(), static_cast<std::size_t>(text.size()) * 2);
    }
    template <typename T>
    void Take(const OffsetArray<T>& array, int count) {
        Take(array.First());
        Take(array.Last());
        if (count > 0) Take(array.At(array.First()), static_cast<std::size_t>(count) * sizeof(T));
    }
    template <typename T>
    void Take(const OffsetArray<T>& array) {
        Take(array, array.Last() - array.First() + 1);
    }
    std::uint64_t Value() const { return value_; }

private:
    std::uint64_t value_ = 0xcbf29ce484222325U;
};

// Elements of a store array that are hashed: all, or what is stored of a very large one.
int StoredElements(const ExperimentState& state) {
    constexpr int few = 1'000'000;
    const int all = state.SRho.Last() - state.SRho.First() + 1;
    return all <= few ? all : std::min(all, (state.NGridCells + 2) * std::max(state.NStored, 1));
}

std::uint64_t HashOfFields(const ExperimentState& state) {
    Hash hash;
    const auto takeAll = [&](const auto&... values) { (hash.Take(values), ...); };
    takeAll(state.NGridCells, state.NGridCellsD, state.MaxGridCells, state.DX, state.Gamma,
            state.SoundSpeed0, state.X, state.Rho, state.P, state.Ux, state.Uy, state.FSmoke,
            state.C2, state.C);
    for (const OffsetArray<float>* array :
         {&state.SRho, &state.SP, &state.SUx, &state.SUy, &state.SFSmoke, &state.SRPlus,
          &state.SRMinus, &state.SEntropy}) {
        hash.Take(*array, StoredElements(state));
    }
    takeAll(state.StoredT, state.StoreCapacity, state.StoreOffset, state.NStored,
            state.StoredStateNumber, state.NSelected, state.MSelList, state.XSelList,
            state.RhoSelList, state.PSelList, state.VxSelList);
    takeAll(state.Time, state.DTime, state.DTime0, state.CourantNumber, state.PeriodTime,
            state.Periods, state.TStop, state.NPlotsPerPeriod, state.NPlotsTotal,
            state.PlotInterval, state.TimeToPlot, state.Stopped, state.MSec, state.MSecMin,
            state.MSecMax, state.SoundWaveMode, state.MnBdry, state.MxBdry, state.NBDY,
            QString::fromStdString(state.SchemeName), state.NDifferenceScheme, state.difcon,
            state.shkjmp, state.wavhaf, state.RhoFloor, state.PFloor, state.VFloor, state.AuxFloor);
    takeAll(state.MSelected, state.RhoSel, state.PSel, state.VxSel, state.RPlusAmp, state.RMinusAmp,
            state.R0Amp, state.RPlusFreq, state.RMinusFreq, state.R0Freq, state.U0, state.RhoMin,
            state.RhoMax, state.PMin, state.PMax, state.VXMin, state.VXMax, state.RMinusMin,
            state.RMinusMax, state.MeterOn, state.TotalMflop, state.SpaceTimeBig,
            state.MultiplePlots, QString::fromStdString(state.StudentName),
            QString::fromStdString(state.TitleText), state.TitleSet);
    takeAll(state.hsbDensityBusy, state.hsbPressureBusy, state.hsbVelocityBusy,
            state.hsbMSelectedBusy, state.txtDensityBusy, state.txtPressureBusy,
            state.txtVelocityBusy, state.txtMSelectedBusy);
    return hash.Value();
}

QString WithoutMoments(QString text) {
    static const QRegularExpression date("\\d{1,4}[ /.-]([A-Z][a-z]{2}|\\d{1,2})[ /.-]\\d{2,4}");
    static const QRegularExpression time("\\d{1,2}:\\d{2}(:\\d{2})?(\\s?[AP]M)?");
    return text.replace(date, "date").replace(time, "time");
}

std::uint64_t HashOfControls(const frmTernlow& form) {
    Hash hash;
    const Controls& controls = form.controls;
    const auto widgets = form.findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    for (const QWidget* widget : widgets) {
        if (widget->objectName().isEmpty()) continue;
        hash.Take(widget->objectName());
        const QRect place = widget->geometry();
        for (const int value : {place.x(), place.y(), place.width(), place.height(),
                                static_cast<int>(widget->isHidden())}) {
            hash.Take(value);
        }
        if (const auto* box = qobject_cast<const QLineEdit*>(widget)) hash.Take(box->text());
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            hash.Take(WithoutMoments(label->text()));
        }
        const auto* button = qobject_cast<const QPushButton*>(widget);
        const bool isRate = button == controls.cmdTest2 && button->text().at(0).isDigit();
        if (button != nullptr && !isRate) hash.Take(button->text());
        if (const auto* bar = qobject_cast<const QScrollBar*>(widget)) {
            for (const int value : {bar->minimum(), bar->maximum(), bar->value(), bar->singleStep(),
                                    bar->pageStep()}) {
                hash.Take(value);
            }
        }
        if (const auto* list = qobject_cast<const QListWidget*>(widget)) {
            hash.Take(list->currentRow());
        }
    }
    hash.Take(controls.tmrMetronome->interval());
    return hash.Value();
}

std::uint64_t HashOfSurfaces(const Controls& controls) {
    Hash hash;
    for (Surface* surface : {controls.pctDensityPlot, controls.pctPressurePlot,
                             controls.pctVelocityPlot, controls.pctSpaceTime}) {
        const QImage image = surface->Image().convertToFormat(QImage::Format_RGB32);
        hash.Take(image.width());
        hash.Take(image.height());
        for (int y = 0; y < image.height(); ++y) {
            hash.Take(image.constScanLine(y), static_cast<std::size_t>(image.width()) * 4);
        }
    }
    return hash.Value();
}

}  // namespace

std::string RecordOf(frmTernlow& form, bool looks) {
    char text[64];
    std::snprintf(text, sizeof text, "%016" PRIx64 " %016" PRIx64 " %016" PRIx64,
                  HashOfFields(form.state), HashOfControls(form),
                  looks ? HashOfSurfaces(form.controls) : std::uint64_t{0});
    return text;
}
