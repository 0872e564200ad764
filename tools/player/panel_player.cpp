// Plays at random on the panel, or runs one test over and over, and says what broke.
//     panel_player [--actions N] [--seed S] [--tell] [--record FILE] [--look K]
//     panel_player --soak RUNS
// A seed gives the same actions each time. Where the program crashes, --tell prints each action
// before it is taken. --record writes a line for every action: hashes of what the panel holds and
// shows after it, and the action; the pictures are looked at after every K-th (after each without
// --look).
#include <unistd.h>

#include <QApplication>
#include <QStringList>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <fstream>

#include "panel/widgets/look.h"
#include "panel/window/main_window.h"
#include "panel_record.h"
#include "random_player.h"

namespace {

struct Wishes {
    long Actions = 1000;
    std::uint64_t Seed = 1;
    bool Tells = false;
    int Soak = 0;
    std::string Record;
    long Look = 1;
};

bool ReadWishes(const QStringList& words, Wishes& wishes) {
    bool isRight = true;
    for (qsizetype i = 1; i < words.size() && isRight; ++i) {
        if (words[i] == "--tell") {
            wishes.Tells = true;
        } else if (words[i] == "--actions") {
            wishes.Actions = words.value(++i).toLong(&isRight);
        } else if (words[i] == "--seed") {
            wishes.Seed = words.value(++i).toULongLong(&isRight);
        } else if (words[i] == "--record") {
            wishes.Record = words.value(++i).toStdString();
        } else if (words[i] == "--look") {
            wishes.Look = words.value(++i).toLong(&isRight);
            isRight = isRight && wishes.Look > 0;
        } else if (words[i] == "--soak") {
            wishes.Soak = words.value(++i).toInt(&isRight);
        } else {
            isRight = false;
        }
    }
    return isRight;
}

int Play(const Wishes& wishes) {
    const auto seed = static_cast<unsigned long long>(wishes.Seed);
    std::printf("%ld actions, seed %llu\n", wishes.Actions, seed);
    std::fflush(stdout);
    RandomPlayer player(wishes.Seed, wishes.Tells);
    std::ofstream record;
    if (!wishes.Record.empty()) record.open(wishes.Record);
    for (long action = 1; action <= wishes.Actions; ++action) {
        player.Act();
        if (record.is_open()) {
            record << action << ' ' << RecordOf(player.Form(), action % wishes.Look == 0) << ' '
                   << player.LastActions().back() << '\n';
        }
        const std::string broken = player.Broken();
        if (broken.empty()) continue;
        std::printf("seed %llu, action %ld broke a promise: %s\nthe last actions:\n", seed, action,
                    broken.c_str());
        for (const std::string& last : player.LastActions()) std::printf("    %s\n", last.c_str());
        return 1;
    }
    std::printf("nothing broke\n");
    return 0;
}

// Memory that the program has in use, in kB.
long ResidentMemory() {
    std::ifstream file("/proc/self/statm");
    long pages = 0, resident = 0;
    file >> pages >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

int Soak(int runs) {
    const int settledAfter = std::min(20, runs);
    Panel panel;
    long settled = 0;
    for (int run = 1; run <= runs; ++run) {
        panel.Press("cmdTest1");
        panel.Press("cmdBegin");
        if (!panel.RunToEnd()) {
            std::printf("run %d did not end\n", run);
            return 1;
        }
        panel.Press("cmdRestart");
        if (run == settledAfter) settled = ResidentMemory();
        if (run % 100 == 0 || run == settledAfter) {
            std::printf("run %d: %ld kB\n", run, ResidentMemory());
            std::fflush(stdout);
        }
    }
    const long grown = ResidentMemory() - settled;
    std::printf("%d runs; memory grew by %ld kB after run %d\n", runs, grown, settledAfter);
    return grown > 1024 ? 1 : 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "default.warning=false");  // the platform's, about each box
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    UseFixedLook();
    Wishes wishes;
    if (!ReadWishes(QApplication::arguments(), wishes)) {
        std::fprintf(stderr,
                     "usage: panel_player [--actions N] [--seed S] [--tell] [--record FILE] "
                     "[--look K] | --soak RUNS\n");
        return 2;
    }
    return wishes.Soak > 0 ? Soak(wishes.Soak) : Play(wishes);
}
