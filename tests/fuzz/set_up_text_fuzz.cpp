// One text for the reader of set-up files, whatever its bytes: it must come back with values that
// keep the promises of the reader, with a short message, or with neither.
//
// With clang this is the libFuzzer target set_up_text_fuzz, built and run by tools/fuzz.sh.
// The tests call the same entry with texts from a seeded mutator.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/model/experiment_state.h"
#include "core/setup/set_up_text.h"

namespace {

constexpr int MaxGridCells = 5001;

void Require(bool kept) {
    if (!kept) std::abort();
}

void RequireLimits(const SetUpValues& read) {
    const int n = read.NGridCells;
    Require(n >= 6 && n <= MaxGridCells && read.NSelected >= 0 && read.NSelected <= n);
    Require(read.SoundSpeed0 > 0.0 && read.Periods > 0.0 && read.NPlotsPerPeriod >= 1);
    Require(read.CourantNumber > 0.0 && read.CourantNumber < 1.0);
    Require(read.RhoMin <= read.RhoMax && read.PMin <= read.PMax && read.VXMin <= read.VXMax);
    Require(read.MSelList.Last() == n + 2 && read.VxSelList.Last() == n + 2);
    Require(read.MSelList[0] == 0 && read.MSelList[read.NSelected + 1] == n + 1);
    for (int k = 0; k <= read.NSelected + 1; ++k) {
        // Points beyond the grid are yet to be mapped; only the closing entry stands before them.
        Require(read.MSelList[k + 1] > read.MSelList[k] || k >= read.NSelected);
        Require(std::isfinite(read.XSelList[k]) && std::isfinite(read.VxSelList[k]));
        Require(read.RhoSelList[k] > 0.0 && std::isfinite(read.RhoSelList[k]));
        Require(read.PSelList[k] > 0.0 && std::isfinite(read.PSelList[k]));
    }
}

std::string WrittenAgain(const SetUpValues& read) {
    ExperimentState state;
    TakeSetUpValues(state, read);
    return WriteSetUpText(state);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const SetUpReading reading = ReadSetUpText(text, MaxGridCells);
    Require(!reading.Values || reading.Message.empty());
    Require(reading.Message.size() < 1000);
    if (!reading.Values) return 0;

    // A number that sits at its limit can be rounded out of it on the way into a file. All others
    // come back as they were written.
    RequireLimits(*reading.Values);
    const std::string written = WrittenAgain(*reading.Values);
    const SetUpReading again = ReadSetUpText(written, MaxGridCells);
    Require(again.Message.empty());
    if (again.Values) Require(WrittenAgain(*again.Values) == written);
    return 0;
}
