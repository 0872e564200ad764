#include "panel/window/last_words.h"

#include <dlfcn.h>
#include <execinfo.h>
#include <unistd.h>

#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>

namespace {

void Say(const char* text) {
    [[maybe_unused]] const ssize_t ignored = write(STDERR_FILENO, text, std::strlen(text));
}

// The first frames are this handler and what the system has put in front of it.
constexpr int FramesOfTheHandler = 2;

// Uses nothing that a crash may have broken but the loader's tables. The system's own answer to the
// signal follows.
void NameTheLibrary(int signal) {
    std::array<void*, 16> frames{};
    const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
    Dl_info place{};
    const bool isKnown = count > FramesOfTheHandler &&
                         dladdr(frames[FramesOfTheHandler], &place) != 0 &&
                         place.dli_fname != nullptr;
    Say("ternlow: crashed in ");
    Say(isKnown ? place.dli_fname : "an unknown place");
    Say("; the calls, the last first:\n");
    const int shown = std::max(count - FramesOfTheHandler, 0);
    backtrace_symbols_fd(frames.data() + (count - shown), shown, STDERR_FILENO);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void CatchCrashes() {
    void* warmUp = nullptr;
    backtrace(&warmUp, 1);  // loads what it needs now, not in the handler
    struct sigaction action {};
    action.sa_handler = NameTheLibrary;
    action.sa_flags = SA_NODEFER | SA_RESETHAND;
    for (const int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL}) sigaction(signal, &action, nullptr);
}

void SayOrEnd(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    std::fprintf(stderr, "ternlow: %s\n", qPrintable(message));
    if (type == QtFatalMsg) std::_Exit(EXIT_FAILURE);
}

[[noreturn]] void EndWithoutMemory() {
    Say("ternlow: cannot go on; most likely there is not enough memory\n");
    std::_Exit(EXIT_FAILURE);
}

}  // namespace

void PrepareLastWords() {
    CatchCrashes();
    std::signal(SIGXFSZ, SIG_IGN);
    qInstallMessageHandler(SayOrEnd);
    std::set_terminate(EndWithoutMemory);
}
