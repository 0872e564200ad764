// ternlow-run: experiments without a window.
#include <csignal>
#include <exception>
#include <iostream>

#include "batch/options.h"
#include "batch/study.h"

namespace {

constexpr int StoppedByUser = 130;

}  // namespace

int main(int argc, char** argv) {
    int status = 0;
    const std::optional<Options> options = ReadOptions(argc, argv, status);
    if (!options) return status;
    std::signal(SIGINT, [](int) { StopStudy(); });
    std::signal(SIGTERM, [](int) { StopStudy(); });
    std::signal(SIGXFSZ, SIG_IGN);  // a file that grows too large is an error of write
    try {
        status = static_cast<int>(DoStudy(*options));
    } catch (const std::exception& failure) {
        std::cerr << "ternlow-run: " << failure.what() << "\n";
        return static_cast<int>(StudyStatus::RunRefused);
    }
    return IsStudyStopped() ? StoppedByUser : status;
}
