// The whole instrument in a window that is on the screen, as its user works it.
//
//   DefaultProblem, Test1   from Begin to the end of the run, ticks fired back to back and the
//                           window's events handled after each, so that it is painted as often as
//                           its screen shows pictures; the counters tell the time steps and cell
//                           updates per second and the share of every part
//   TypeGridSize            5001 typed into the grid box at the default problem, digit by digit
//   ReadFullSetUp           opening and applying a set-up file with a point in each of 5001 cells
//   StartUp                 the program from its start to a painted window, as a process of its own
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QPaintEvent>
#include <QProcess>
#include <QTemporaryDir>
#include <clocale>
#include <cmath>
#include <string_view>

#include "core/setup/set_up_text.h"
#include "panel/dialogs/tick_hold.h"
#include "panel/run/metronome.h"
#include "panel/widgets/look.h"
#include "panel/widgets/surface.h"
#include "panel/window/main_window.h"
#include "panel_driver.h"
#include "part_clock.h"

namespace {

constexpr int LargestGrid = 5001;
constexpr const char* StartUpOnly = "--start-up";

// Charges every event to its part.
class TimedApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        const TimeOf time(PartOf(receiver, *event));
        return QApplication::notify(receiver, event);
    }

private:
    static Part PartOf(QObject* receiver, const QEvent& event) {
        if (event.type() != QEvent::Paint || dynamic_cast<Surface*>(receiver) == nullptr) {
            return Part::Widgets;
        }
        return receiver->objectName() == "pctSpaceTime" ? Part::Picture : Part::Plots;
    }
};

void HandleEvents() {
    const TimeOf time(Part::Widgets);
    QCoreApplication::processEvents();
}

// The panel on the screen. Its own ticks are held.
class ShownPanel : public Panel {
public:
    ShownPanel() : hold_(Form().controls) {
        Form().show();
        HandleEvents();
    }

private:
    TickHold hold_;
};

void TellShares(benchmark::State& run, int cells) {
    const PartClock& clock = PartClock::Get();
    double whole = 0.0;
    for (std::size_t part = 0; part < PartCount; ++part) whole += clock.Seconds(Part(part));
    for (std::size_t part = 0; part < PartCount; ++part) {
        run.counters[PartNames[part]] = clock.Seconds(Part(part)) / whole;
    }
    const double steps = clock.Steps();
    run.counters["steps"] = benchmark::Counter(steps, benchmark::Counter::kIsRate);
    run.counters["updates"] = benchmark::Counter(steps * cells, benchmark::Counter::kIsRate);
}

// Every iteration is a run of the problem that stands; the counters are those of all of them.
void RunToEnd(benchmark::State& run, ShownPanel& panel) {
    ExperimentState& state = panel.Form().state;
    PartClock::Get().Forget();
    for (auto _ : run) {
        PartClock::Get().Resume();
        panel.Press("cmdBegin");
        while (state.Stopped == 0) {
            tmrMetronome_Timer(state, panel.Form().controls);
            HandleEvents();
        }
        PartClock::Get().Pause();

        run.PauseTiming();
        panel.Press("cmdRestart");
        HandleEvents();
        run.ResumeTiming();
    }
    TellShares(run, state.NGridCells);
}

void DefaultProblem(benchmark::State& run) {
    ShownPanel panel;
    panel.Type("txtNGridCells", QString::number(run.range(0)));
    RunToEnd(run, panel);
}

void Test1(benchmark::State& run) {
    ShownPanel panel;
    panel.Press("cmdTest1");
    RunToEnd(run, panel);
}

void TypeGridSize(benchmark::State& run) {
    ShownPanel panel;
    for (auto _ : run) {
        panel.Type("txtNGridCells", QString::number(LargestGrid));
        HandleEvents();

        run.PauseTiming();
        panel.Type("txtNGridCells", "400");
        HandleEvents();
        run.ResumeTiming();
    }
}

// A set-up with a point in every cell of the largest grid, no two alike.
std::string FullSetUp() {
    ExperimentState state;
    const int n = LargestGrid;
    state.NGridCells = n;
    state.NSelected = n;
    state.MSelList = OffsetArray<int>(0, n + 2);
    state.XSelList = state.RhoSelList = state.PSelList = state.VxSelList =
        OffsetArray<double>(0, n + 2);
    for (int k = 0; k <= n + 1; ++k) {
        const double phase = 20.0 * k / n;
        state.MSelList[k] = k;
        state.XSelList[k] = (k - 0.5) / n;
        state.RhoSelList[k] = 1.0 + 0.3 * std::sin(phase);
        state.PSelList[k] = 1.0 + 0.2 * std::cos(2.0 * phase);
        state.VxSelList[k] = 0.5 * std::sin(phase + 1.0);
    }
    return WriteSetUpText(state);
}

void ReadFullSetUp(benchmark::State& run) {
    const QTemporaryDir folder;
    const QString name = folder.filePath("full.txt");
    QFile file(name);
    const std::string text = FullSetUp();
    file.open(QIODevice::WriteOnly);
    file.write(text.data(), static_cast<qint64>(text.size()));
    file.close();

    ShownPanel panel;
    for (auto _ : run) {
        const BoxAnswers answers({name});
        panel.Press("cmdReadSetUp");
        HandleEvents();
    }
    if (panel.Form().state.NSelected != LargestGrid) run.SkipWithError("the file was not taken");
}

// Does what the program does, until its window has been painted.
int StartUpAndLeave() {
    ShownPanel panel;
    return 0;
}

void StartUp(benchmark::State& run) {
    for (auto _ : run) {
        if (QProcess::execute(QCoreApplication::applicationFilePath(), {StartUpOnly}) != 0) {
            run.SkipWithError("the program did not start");
        }
    }
}

BENCHMARK(DefaultProblem)
    ->ArgName("cells")
    ->Arg(400)
    ->Arg(1000)
    ->Arg(LargestGrid)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Test1)->Unit(benchmark::kMillisecond);
BENCHMARK(TypeGridSize)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadFullSetUp)->Unit(benchmark::kMillisecond);
BENCHMARK(StartUp)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    TimedApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    UseFixedLook();
    if (argc == 2 && std::string_view(argv[1]) == StartUpOnly) return StartUpAndLeave();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
