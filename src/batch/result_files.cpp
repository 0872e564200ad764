#include "batch/result_files.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "core/model/number_text.h"
#include "core/run/state_store.h"

namespace {

constexpr std::uintmax_t LargestSetUpFile = 8 << 20;
constexpr const char* FiguresMark = "# figures ";
constexpr const char* Columns =
    "cell,x,density,pressure,velocity,transverse,smoke,r_plus,r_minus,entropy";

std::string Commented(const FileHead& head) {
    std::string text;
    for (const std::string& line : head) text += "# " + line + "\n";
    return text;
}

std::string HeadText(const RunResult& result, const FileHead& head) {
    return Commented(head) + FiguresMark + JsonOf(result.Figures) + "\n";
}

// The number of stored states in the JSON of figures.
int StoredIn(const std::string& figures) {
    const std::string key = "\"stored\": ";
    const std::size_t at = figures.find(key);
    return at == std::string::npos ? 0 : std::atoi(figures.c_str() + at + key.size());
}

void Add(std::string& line, double value) {
    line += ',';
    line += ExactNumber(value);
}

double MiddleOf(const ExperimentState& state, int i) {
    return 0.5 * (state.X[i] + state.X[i + 1]);
}

}  // namespace

std::string LastStateText(const RunResult& result, const FileHead& head) {
    // The invariants and the entropy of the present state, by the store's own procedure.
    ExperimentState last = result.State;
    last.NPlotsTotal = 1;
    AllocateStore(last);
    TakeSnapshot(last, 0);
    std::string text = HeadText(result, head) + Columns;
    if (result.Exact) text += ",exact_density,exact_pressure,exact_velocity";
    text += '\n';
    for (int i = 1; i <= last.NGridCells; ++i) {
        text += std::to_string(i);
        for (const double value :
             {MiddleOf(last, i), last.Rho[i], last.P[i], last.Ux[i], last.Uy[i], last.FSmoke[i]}) {
            Add(text, value);
        }
        for (const float value : {last.SRPlus[i], last.SRMinus[i], last.SEntropy[i]}) {
            Add(text, static_cast<double>(value));
        }
        if (result.Exact) {
            Add(text, result.Exact->Rho[i]);
            Add(text, result.Exact->P[i]);
            Add(text, result.Exact->Ux[i]);
        }
        text += '\n';
    }
    return text;
}

std::string StoredStatesText(const RunResult& result, const FileHead& head) {
    const ExperimentState& state = result.State;
    std::string text = HeadText(result, head) + "state,time," + Columns + "\n";
    for (int s = 0; s < state.NStored; ++s) {
        const std::string front = std::to_string(s) + ',' + ExactNumber(state.StoredT[s]) + ',';
        const int base = s * StoreStride(state);
        for (int i = 1; i <= state.NGridCells; ++i) {
            text += front + std::to_string(i);
            Add(text, MiddleOf(state, i));
            const int at = base + i;
            for (const float value :
                 {state.SRho[at], state.SP[at], state.SUx[at], state.SUy[at], state.SFSmoke[at],
                  state.SRPlus[at], state.SRMinus[at], state.SEntropy[at]}) {
                Add(text, static_cast<double>(value));
            }
            text += '\n';
        }
    }
    return text;
}

std::string WriteWhole(const std::string& path, const std::string& text) {
    const std::filesystem::path target(path);
    const std::string folder = target.has_parent_path() ? target.parent_path().string() : ".";
    std::string name = folder + "/.ternlow-XXXXXX";
    const int file = mkstemp(name.data());
    if (file < 0) return std::strerror(errno);
    std::size_t done = 0;
    bool good = fchmod(file, 0644) == 0;
    while (good && done < text.size()) {
        const ssize_t written = write(file, text.data() + done, text.size() - done);
        good = written > 0 || (written < 0 && errno == EINTR);
        if (written > 0) done += static_cast<std::size_t>(written);
    }
    good = good && fsync(file) == 0;
    int error = errno;
    if (close(file) != 0 && good) {
        good = false;
        error = errno;
    }
    if (good && std::rename(name.c_str(), path.c_str()) == 0) return "";
    if (good) error = errno;
    unlink(name.c_str());
    return std::strerror(error);
}

std::optional<std::string> FiguresInFile(const std::string& path, const FileHead& head,
                                         int lastCell) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    const std::string text = content.str();
    const std::string start = Commented(head) + FiguresMark;
    if (!file || text.compare(0, start.size(), start) != 0 || text.back() != '\n') {
        return std::nullopt;
    }
    const std::size_t end = text.find('\n', start.size());
    const std::string figures = text.substr(start.size(), end - start.size());
    const std::string last = text.substr(text.rfind('\n', text.size() - 2) + 1);
    // "cell,..." of the last state, "state,time,cell,..." of the stored ones.
    std::size_t cellAt = 0;
    if (text.compare(end + 1, 6, "state,") == 0) {
        const std::string state = std::to_string(StoredIn(figures) - 1) + ",";
        if (last.compare(0, state.size(), state) != 0) return std::nullopt;
        cellAt = last.find(',', state.size()) + 1;
    }
    const std::string cell = std::to_string(lastCell) + ",";
    if (last.compare(cellAt, cell.size(), cell) != 0) return std::nullopt;
    return figures;
}

std::optional<std::string> ContentOf(const std::string& path) {
    std::error_code trouble;
    const std::uintmax_t size = std::filesystem::file_size(path, trouble);
    if (trouble || size == 0 || size > LargestSetUpFile) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    if (!file) return std::nullopt;
    return content.str();
}
