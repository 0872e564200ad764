// Set-up files, written and read through the panel's buttons.
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QCursor>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cerrno>
#include <csignal>
#include <functional>
#include <vector>

#include "core/setup/control_points.h"
#include "core/setup/set_up_text.h"
#include "panel/entry/last_refusal.h"
#include "panel/problems/file_replacement.h"
#include "panel_test.h"

namespace {

// What the disk says to the next syncs: 0 for done, or the number of an error.
int syncError = 0;

}  // namespace

// In the place of the system's, for this program.
extern "C" int fsync(int file) {
    if (syncError == 0) return static_cast<int>(syscall(SYS_fsync, file));
    errno = syncError;
    return -1;
}

namespace {

class PanelFiles : public PanelTest {
protected:
    void Write(const QString& name) { Ask("cmdWriteSetUp", {folder.filePath(name)}); }

    // What the boxes said while the file was read.
    std::vector<BoxAnswers::Box> Read(const QString& name) {
        return Ask("cmdReadSetUp", {folder.filePath(name)});
    }

    void Save(const QString& name, const QByteArray& content) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    std::string Reason() { return ReadLastRefusal(controls).Why; }

    QByteArray Load(const QString& name) {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
};

// No file can be written beyond its first `room` bytes meanwhile.
template <typename Action>
void OnAFullDisk(rlim_t room, Action action) {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const rlimit limit{room, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
    action();
    setrlimit(RLIMIT_FSIZE, &former);
}

// The folder takes no new files meanwhile, and the user is not one to whom permissions do not
// apply.
template <typename Action>
void InAClosedFolder(const QString& folder, Action action) {
    constexpr uid_t nobody = 65534;
    const uid_t user = geteuid();
    chmod(qPrintable(folder), 0555);
    EXPECT_EQ(seteuid(user == 0 ? nobody : user), 0);
    action();
    EXPECT_EQ(seteuid(user), 0);
    chmod(qPrintable(folder), 0755);
}

}  // namespace

TEST_F(PanelFiles, BringBackWhatWasWritten) {
    // The default problem, one by hand, and the tests.
    for (int problem = -1; problem <= 8; ++problem) {
        SCOPED_TRACE(problem);
        if (problem > 0) panel.Press(qPrintable(QString("cmdTest%1").arg(problem)));
        if (problem == 0) {
            panel.Press("cmdReset");
            for (const int cell : {17, 18, 230}) {
                panel.Type("txtMSelected", QString::number(cell));
                panel.Type("txtDensity", QString::number(0.5 + 0.01 * cell));
                panel.Press("cmdSelect");
            }
        }
        // The first replay rounds to six decimals.
        for (const char* name : {"raw.txt", "once.txt"}) {
            Write(name);
            EXPECT_EQ(Read(name).size(), 1u) << "the dialog, no message";
        }
        const auto replayed = Fields();
        Write("twice.txt");
        controls.txtNGridCells->setText("37");
        Read("twice.txt");
        EXPECT_EQ(Fields(), replayed) << "the replay through the boxes is its own fixed point";
        EXPECT_EQ(state.NGridCells, 400);
        Write("thrice.txt");
        EXPECT_EQ(Load("thrice.txt"), Load("twice.txt"));
    }
}

TEST_F(PanelFiles, TakeTheGridOfTheFile) {
    controls.txtNGridCells->setText("40");
    Write("forty.txt");
    controls.txtNGridCells->setText("100");
    Write("hundred.txt");
    controls.txtNGridCells->setText("400");
    Read("hundred.txt");
    EXPECT_EQ(state.NGridCells, 100);
    EXPECT_EQ(controls.txtNGridCells->text(), "100");
    EXPECT_EQ(controls.hsbMSelected->maximum(), 100);

    // Away from Time 0 nothing can be selected, but the panel keeps to the new grid.
    panel.Press("cmdBegin");
    panel.Tick(3);
    panel.Press("cmdPause");
    Read("forty.txt");
    EXPECT_EQ(state.NGridCells, 40);
    EXPECT_EQ(BrokenPromise(panel.Form()), "");
    panel.Press("cmdRestart");
    EXPECT_EQ(state.Time, 0.0);
}

// As when only the number of cells is edited. On another grid or on the same one, before a run and
// after it, the points land where their positions say.
TEST_F(PanelFiles, MapPointsThatLieBeyondTheGridOfTheFile) {
    Write("large.txt");
    Save("cut.txt", Load("large.txt").replace("  400\r\n", "  100\r\n"));
    const std::vector<int> cells = {0, 1, 10, 11, 90, 91, 100, 101};
    for (const char* typed : {"400", "100"}) {
        controls.txtNGridCells->setText(typed);
        Read("cut.txt");
        EXPECT_EQ(state.NGridCells, 100) << typed;
        const int* const first = state.MSelList.At(0);
        EXPECT_EQ(std::vector<int>(first, first + state.NSelected + 2), cells) << typed;
        EXPECT_EQ(state.P[10], 1000.0) << typed;
        EXPECT_EQ(state.P[11], 0.01) << typed;
    }
    panel.Press("cmdBegin");
    panel.Tick();
    Read("cut.txt");
    EXPECT_EQ(state.MSelList[3], 11);
    EXPECT_EQ(BrokenPromise(panel.Form()), "");
}

TEST_F(PanelFiles, SayWhatIsWrongAndChangeNothing) {
    Write("good.txt");
    const QByteArray good = Load("good.txt");
    panel.Press("cmdTest1");
    const auto all = [&] { return std::pair(Fields(), WriteSetUpText(state)); };
    const auto before = all();
    Save("bad.txt", QByteArray(good).replace("\"RhoMax\"", "\"rhoMax\""));
    const auto boxes = Read("bad.txt");
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[1].Message,
              "I expected to read the string 'RhoMax' but got instead rhoMax\n"
              "You screwed up.   This input file will be ignored.");
    EXPECT_EQ(Reason(), "a name is wrong before field 11");
    EXPECT_EQ(all(), before);
    Save("negative.txt", QByteArray(good).replace("1000", "-1000"));
    Save("huge.txt", QByteArray(9 << 20, '1'));
    Save("empty.txt", "");
    ASSERT_EQ(mkfifo(qPrintable(folder.filePath("pipe.txt")), 0600), 0);
    const std::pair<const char*, const char*> silent[] = {
        {"negative.txt", "field 49 is no number"},
        {"huge.txt", "it is too large"},
        {"empty.txt", "it is empty"},
        {"pipe.txt", "it cannot be read"},
    };
    for (const auto& [name, reason] : silent) {
        EXPECT_EQ(Read(name).size(), 1u) << name << ": the dialog, no message";
        EXPECT_EQ(all(), before) << name;
        EXPECT_EQ(Reason(), reason);
    }
    Read("missing.txt");
    Read(".");
    EXPECT_EQ(all(), before);
}

TEST_F(PanelFiles, KeepTheOldFileWhereNoNewOneCanBeWritten) {
    Write("kept.txt");
    const QByteArray kept = Load("kept.txt");
    panel.Press("cmdTest1");
    Write("nowhere/kept.txt");
    const auto cancelled = Ask("cmdWriteSetUp", {std::nullopt});
    ASSERT_EQ(cancelled.size(), 1u);
    EXPECT_EQ(cancelled[0].Message, "All Files (*.*) (*)|Text Files (*.txt) (*.txt)");
    OnAFullDisk(0, [&] { Write("kept.txt"); });
    EXPECT_EQ(Load("kept.txt"), kept);
    const QString pipe = folder.filePath("pipe.txt");
    ASSERT_EQ(mkfifo(qPrintable(pipe), 0600), 0);
    Read("pipe.txt");  // nobody writes into it: whoever opened it would wait
    Write("pipe.txt");
    EXPECT_FALSE(QFileInfo(pipe).isFile());
    Write("no-ending");
    EXPECT_FALSE(Load("no-ending.txt").isEmpty());
    Save("plain", kept);
    Read("plain");
    EXPECT_EQ(state.NSelected, 6);
}

TEST_F(PanelFiles, AreReplacedOnlyOnceTheDiskHasKeptTheNewOnes) {
    Write("kept.txt");
    const QByteArray kept = Load("kept.txt");
    panel.Press("cmdTest1");
    const struct {
        int Error;
        const char* Reason;
    } rows[] = {{EIO, "the system says: Input/output error"}, {ENOSPC, "there is no room left"}};
    for (const auto& row : rows) {
        syncError = row.Error;
        Write("kept.txt");
        syncError = 0;
        EXPECT_EQ(Load("kept.txt"), kept);
        EXPECT_EQ(Reason(), row.Reason);
        EXPECT_EQ(ReadLastRefusal(controls).What, "Write Set Up of kept.txt");
    }
    // A save that was killed leaves one file at most, which the next save takes away.
    const QString left = QString(".ternlow-save-%1").arg(geteuid());
    Save(left, "half");
    Write("kept.txt");
    EXPECT_EQ(Load("kept.txt"), QByteArray::fromStdString(WriteSetUpText(state)));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"kept.txt"});
}

TEST_F(PanelFiles, AreNotTakenUnderANameThatCannotBeWritten) {
    const QString longest(251, 'n');  // with ".txt" as long as names can be
    const struct {
        QString Name;
        const char* Reason;
    } rows[] = {
        {longest, nullptr},
        {longest + "n", "its name is 1 bytes too long"},
        {"nowhere/a", "there is no such folder"},
        {"a", nullptr},
    };
    for (const auto& row : rows) {
        for (int time = 1; time <= 2; ++time) {  // the second replaces
            const auto boxes = Ask("cmdWriteSetUp", {folder.filePath(row.Name)});
            const QString said = boxes.size() > 1 ? boxes.back().Message : QString();
            const bool isObjected = said.contains("cannot be used");
            EXPECT_EQ(isObjected, row.Reason != nullptr) << qPrintable(row.Name + said);
            if (row.Reason != nullptr) {
                EXPECT_TRUE(said.contains(row.Reason)) << qPrintable(said);
            }
            EXPECT_EQ(QFileInfo(folder.filePath(row.Name + ".txt")).size() > 0, !isObjected);
        }
    }
    ASSERT_EQ(mkfifo(qPrintable(folder.filePath("pipe")), 0600), 0);
    EXPECT_EQ(WhyNotWritable(folder.filePath("pipe")), "it is no plain file");
}

// As on a shared drive: what lies there may be written, but nothing can be put beside it.
TEST_F(PanelFiles, AreWrittenWhereTheyLieInAFolderThatTakesNoNewOnes) {
    const QString closed = folder.filePath("closed");
    ASSERT_TRUE(QDir().mkdir(closed) &&
                QFile::link(closed + "/short.txt", closed + "/../link.txt"));
    Write("closed/long.txt");
    panel.Press("cmdReset");
    Write("closed/short.txt");
    Write("closed/read-only.txt");
    const QByteArray longer = Load("closed/long.txt");
    const QByteArray shorter = Load("closed/short.txt");
    for (const char* file : {"long.txt", "short.txt"}) {
        ASSERT_EQ(chmod(qPrintable(closed + "/" + file), 0666), 0);
    }
    ASSERT_EQ(chmod(qPrintable(closed + "/read-only.txt"), 0444), 0);
    ASSERT_EQ(chmod(qPrintable(folder.path()), 0777), 0);

    InAClosedFolder(closed, [&] {
        OnAFullDisk(static_cast<rlim_t>(shorter.size()) - 1, [&] {
            Write("closed/long.txt");
            panel.Press("cmdTest1");
            Write("closed/short.txt");
        });
        EXPECT_EQ(Load("closed/long.txt"), longer);
        EXPECT_EQ(Load("closed/short.txt"), shorter);
        for (const char* file : {"closed/long.txt", "link.txt", "closed/read-only.txt"})
            Write(file);
    });
    const QByteArray written = QByteArray::fromStdString(WriteSetUpText(state));
    ASSERT_TRUE(shorter.size() < written.size() && written.size() < longer.size());
    EXPECT_EQ(Load("closed/long.txt"), written);
    EXPECT_EQ(Load("closed/short.txt"), written) << "at the end of the link";
    EXPECT_EQ(Load("closed/read-only.txt"), shorter);
}

// A problem without points is only as good as its closing entries. Its axes are those of the file,
// whatever the gas, and though the grid is painted and its boxes widen the axes.
TEST_F(PanelFiles, NeedNoPoints) {
    Write("points.txt");
    QByteArray text = Load("points.txt");
    text.replace(" 6\r\n", " 0\r\n").replace("1.05\r\n", "3\r\n").replace("0.95\r\n", "2\r\n");
    text.replace("-0.0000001,              1,", "0, 1e-300,");
    text.replace(" 0.0000001,               1,                       1000", "0, 1, 1e-300");
    Save("bare.txt", text.replace("1049.9995", "500"));
    Read("bare.txt");
    ASSERT_EQ(state.NSelected, 0);
    EXPECT_TRUE(state.Rho[1] == 1e-8 && state.P[400] == 1e-8) << "raised to the floors";
    EXPECT_TRUE(state.RhoMin == 2.0 && state.RhoMax == 3.0 && state.PMax == 500.0);
    EXPECT_EQ(Text("txtDensityMin"), "2.0");
    EXPECT_EQ(Text("txtPressureMax"), "500.0");
    EXPECT_EQ(Text("txtMSelected"), "200") << "the grid of the file is shown";
}

TEST_F(PanelFiles, ShowABusyPointerWhileManyPointsAreTakenOff) {
    const auto isBusySeen = [&](const std::function<void()>& action) {
        bool isBusy = false;
        const auto watch = QObject::connect(controls.txtMSelected, &QLineEdit::textChanged, [&] {
            const QCursor* const pointer = QGuiApplication::overrideCursor();
            isBusy = isBusy || (pointer != nullptr && pointer->shape() == Qt::WaitCursor);
        });
        action();
        QObject::disconnect(watch);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr) << "it is given back";
        return isBusy;
    };
    controls.txtNGridCells->setText("600");
    EXPECT_FALSE(isBusySeen([&] { controls.txtNGridCells->setText("500"); })) << "six points";
    for (int m = 1; m <= 500; ++m) {
        if (FindControlPoint(state, m) == 0) InsertControlPoint(state, m, {1.0, 1.0, 0.0});
    }
    Write("many.txt");
    EXPECT_FALSE(isBusySeen([&] { Read("many.txt"); })) << "too quick to be felt";
    ASSERT_EQ(state.NSelected, 500);
    EXPECT_TRUE(isBusySeen([&] { panel.Press("cmdReset"); }));
}
