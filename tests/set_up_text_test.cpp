#include "core/setup/set_up_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "core/model/experiment_state.h"
#include "core/setup/blast_waves.h"
#include "core/setup/grid.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int MaxGridCells = 5001;

// The two blast waves, on axes that a run has grown.
ExperimentState ThreePressures() {
    ExperimentState state;
    BuildBlastWaves(state);
    state.SoundSpeed0 = 1.0;
    state.RhoMax = 1.05;
    state.RhoMin = 0.95;
    state.PMax = 1049.9995;
    state.PMin = -49.9895;
    state.VXMax = 1.8708286933869707;
    state.VXMin = -1.8708286933869707;
    return state;
}

// Every list full, with numbers of all sizes.
ExperimentState FullLists() {
    ExperimentState state;
    state.NGridCells = MaxGridCells;
    state.NDifferenceScheme = -7;
    state.SoundSpeed0 = 1.18321595661992;
    state.Periods = 1e-20;
    state.NPlotsPerPeriod = 2000000000;
    state.NSelected = MaxGridCells;
    ResizeControlPointLists(state);
    for (int m = 0; m <= MaxGridCells + 1; ++m) {
        state.MSelList[m] = m;
        state.XSelList[m] = m / 5001.0;
        state.RhoSelList[m] = 1e-8 + m;
        state.PSelList[m] = 1e12 / (m + 1);
        state.VxSelList[m] = m % 2 == 0 ? -m : 1e-300;
    }
    return state;
}

std::string Replaced(std::string text, const std::string& what, const std::string& by) {
    std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << "no " << what;
    for (; at != std::string::npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
    return text;
}

// What is written of what was read; nothing of a text that is refused.
std::string ReadAndWritten(const std::string& text) {
    const SetUpReading reading = ReadSetUpText(text, MaxGridCells);
    if (!reading.Values) return {};
    ExperimentState state;
    TakeSetUpValues(state, *reading.Values);
    return WriteSetUpText(state);
}

}  // namespace

TEST(WriteSetUpText, PutsEveryFieldInItsColumn) {
    const std::string lines = R"("NDifferenceScheme",    3
"NGridCells",           400
"SoundSpeed0",          1
"CourantNumber",        0.85
"RhoMax",               1.05
"RhoMin",               0.95
"PMax",                 1049.9995
"PMin",                 -49.9895
"VXMax",                1.87082869338697
"VXMin",                -1.87082869338697
"Periods",              1.5
"NPlotsPerPeriod",      400
"NSelected",            6
""
"MSelected",       "X",                     "Rho",                   "P",                     "VX"
0,            -0.0000001,              1,                       1000,                    0
1,            0.0000001,               1,                       1000,                    0
40,           0.0999999,               1,                       1000,                    0
41,           0.1000001,               1,                       0.01,                    0
360,          0.8999999,               1,                       0.01,                    0
361,          0.9000001,               1,                       100,                     0
400,          0.9999999,               1,                       100,                     0
401,          1.0000001,               1,                       100,                     0
)";
    EXPECT_EQ(WriteSetUpText(ThreePressures()), Replaced(lines, "\n", "\r\n"));
}

TEST(ReadSetUpText, GivesBackWhatWasWritten) {
    for (const ExperimentState& state : {ThreePressures(), FullLists()}) {
        const std::string text = WriteSetUpText(state);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
        EXPECT_EQ(ReadAndWritten(text), text);
    }
}

TEST(ReadSetUpText, LooksAtFieldsNotAtLinesAndColumns) {
    const std::string written = WriteSetUpText(ThreePressures());
    const std::string texts[] = {
        Replaced(written, "\r\n", "\n"),
        Replaced(written, "\r\n", "\r"),
        Replaced(written, "\r\n", " \t\r\n  "),
        Replaced(Replaced(written, "  ", ""), "\r\n", ","),
        Replaced(written, "\"", ""),
        Replaced(written, "\"\"\r\n", "\r\n"),
        Replaced(written, "0.01,", ".01 ,"),
        Replaced(written, "1000,", "+1.0E3,"),
        Replaced(written, " 400\r\n", " 400.5\r\n"),  // ties go to even
        Replaced(written, " 6\r\n", " 5.5\r\n"),
        Replaced(written, "\n41,", "\n40.6,"),
        Replaced(written, "401,", "501,"),  // the closing entries stand where they must
        Replaced(written, "\n0,", "\n7,"),
        written.substr(0, written.size() - 2),
        written + "what comes behind, is not looked at",
        "\xEF\xBB\xBF" + written,
    };
    for (const std::string& text : texts) {
        EXPECT_EQ(ReadAndWritten(text), written) << text;
    }
}

TEST(ReadSetUpText, SaysWhichStringWasWrong) {
    const std::string written = WriteSetUpText(ThreePressures());
    const auto expectMessage = [&](const std::string& what, const std::string& by,
                                   const std::string& message) {
        const SetUpReading reading = ReadSetUpText(Replaced(written, what, by), MaxGridCells);
        EXPECT_FALSE(reading.Values.has_value());
        EXPECT_EQ(reading.Message, message + "You screwed up.   This input file will be ignored.");
    };
    for (const std::string key :
         {"NDifferenceScheme", "NGridCells", "SoundSpeed0", "CourantNumber", "RhoMax", "RhoMin",
          "PMax", "PMin", "VXMax", "VXMin", "Periods", "NPlotsPerPeriod", "NSelected"}) {
        expectMessage('"' + key + '"', "\"Other, key\"",
                      "I expected to read the string '" + key + "' but got instead Other, key\r\n");
    }
    // The number behind a wrong key need not be the whole number that was due.
    expectMessage("\"NGridCells\",           400", "\"NGRIDCELLS\", 3e9",
                  "I expected to read the string 'NGridCells' but got instead NGRIDCELLS\r\n");
    expectMessage("\"\"\r\n", "\"x\"\r\n",
                  "I expected to read the null string but got instead x\r\n");
    expectMessage("\"Rho\"", "\"rho\"",
                  "I expected to read the string 'MSelected' but got instead MSelected\r\n"
                  "I expected to read the string 'X' but got instead X\r\n"
                  "I expected to read the string 'Rho' but got instead rho\r\n"
                  "I expected to read the string 'P' but got instead P\r\n"
                  "I expected to read the string 'VX' but got instead VX\r\n");
    expectMessage("\"\"\r\n", "\"a\n\r\n\t\nb\"\r\n",
                  "I expected to read the null string but got instead a     b\r\n");
    // Seventy-nine letters and two characters of two bytes: the cut falls before the first of them.
    const std::string letters(79, 'a');
    expectMessage("PMax", letters + "\u00e4\u00e4",
                  "I expected to read the string 'PMax' but got instead " + letters + "...\r\n");
}

TEST(ReadSetUpText, PassesOverInSilenceWhatCannotStand) {
    const std::string written = WriteSetUpText(ThreePressures());
    const auto expectSilence = [](const std::string& text) {
        const SetUpReading reading = ReadSetUpText(text, MaxGridCells);
        EXPECT_FALSE(reading.Values.has_value()) << text;
        EXPECT_EQ(reading.Message, "") << text;
    };
    // clang-format off
    const struct { std::string key; std::vector<const char*> values; } parameters[] = {
        {"NGridCells",        {"5", "5001.5", "4294967696", "four hundred"}},
        {"NDifferenceScheme", {"3e9"}},
        {"SoundSpeed0",       {"0", "1e300"}},
        {"CourantNumber",     {"0", "1", "nan", "1e-320"}},
        {"Periods",           {"0", "1e300", "1e999"}},
        {"NPlotsPerPeriod",   {"0.5", "2147483647.5"}},
        {"RhoMax",            {"0.9"}},
        {"PMin",              {"1050"}},
        {"VXMax",             {"-2"}},
        {"NSelected",         {"-1", "7", "401", "2147483647"}},
    };
    const struct { const char *what, *by; } pieces[] = {
        {"\n41,", "\n40,"}, {"\n1,", "\n0,"}, {"0.1000001,               1, ", "0.1000001, 0, "},
        {"0.01, ", "0, "},  {"0.1000001", "x"}, {"0.1000001,               1, ", "0.1000001, inf, "},
        {"\"\"\r\n", "\"\r\n"}, {"\"VX\"\r\n", "\"VX\" \"\"\r\n"}, {"\"NSelected\"", "\"NSelected"},
        {"\r\n40,", "\r\n\r\n40,"},   {",            0.0000001", ""},
    };
    // clang-format on
    for (const auto& [key, values] : parameters) {
        const std::size_t at = written.find('"' + key + '"');
        const std::string line = written.substr(at, written.find('\r', at) - at);
        for (const char* value : values) {
            expectSilence(Replaced(written, line, '"' + key + "\", " + value));
        }
    }
    for (const auto& [what, by] : pieces) expectSilence(Replaced(written, what, by));
    for (const std::size_t end : {0U, 1U, 24U, 300U, 600U, 900U, 1200U}) {
        expectSilence(written.substr(0, end));
    }
}

TEST(ReadSetUpText, SaysWhyInOneSentence) {
    const std::string written = WriteSetUpText(ThreePressures());
    const auto edited = [&](const char* what, const char* by) {
        return Replaced(written, what, by);
    };
    const std::pair<std::string, const char*> rows[] = {
        {"", "it is no set-up file"},
        {"Dear Sir, or Madam", "it is no set-up file"},
        {"a,1", "it is no set-up file"},
        {written.substr(0, written.find("\n40,")), "it ends too soon"},
        {edited("-49.9895", "low"), "field 16 is no number"},
        {edited("  3\r\n", "  3e9\r\n"), "field 2 is out of range"},
        {edited("\"VX\"\r\n", "\"VX\" \"\"\r\n"), "field 32 goes on behind its quotes"},
        {edited("\"PMin\"", "\"pmin\""), "a name is wrong before field 17"},
        {edited("  400\r\n", "  5\r\n"), "NGridCells is out of range"},
        {edited("0.85", "1"), "CourantNumber is out of range"},
        {edited("-49.9895", "1050"), "PMin to PMax is no axis"},
        {edited("0.01,", "0,"), "P in row 4 of the points is out of range"},
        {edited("\n41,", "\n40,"),
         "MSelected in row 4 of the points does not lie behind the cell before"},
        {written, ""},
    };
    for (const auto& [text, reason] : rows) {
        EXPECT_EQ(ReadSetUpText(text, MaxGridCells).Reason, reason) << text;
    }
}

TEST(ReadSetUpText, TakesASetUpWithoutPointsIfItsAxesHaveLength) {
    const auto isTaken = [](const std::string& text) { return !ReadAndWritten(text).empty(); };
    const std::string written = WriteSetUpText(ThreePressures());
    const std::string noPoints = Replaced(written, " 6\r\n", " 0\r\n");
    EXPECT_TRUE(isTaken(noPoints));
    EXPECT_FALSE(isTaken(Replaced(noPoints, "-49.9895", "1049.9995")));
    EXPECT_TRUE(isTaken(Replaced(written, "-49.9895", "1049.9995")));
    EXPECT_TRUE(isTaken(Replaced(noPoints, " 400\r\n", " 6\r\n")));
    EXPECT_FALSE(isTaken(Replaced(noPoints, " 400\r\n", " 5\r\n")));
    // More points than the lists of so small a grid can hold, with all their rows.
    std::string crowded = Replaced(written, " 400\r\n", " 6\r\n");
    crowded = Replaced(crowded, "\"NSelected\",            6", "\"NSelected\", 40");
    for (int m = 0; m < 40; ++m) crowded += "1, 0.5, 1, 1, 0\r\n";
    EXPECT_FALSE(isTaken(crowded));
}

TEST(ReadSetUpText, BearsAnyText) {
    const std::string written = WriteSetUpText(ThreePressures());
    const std::string pieces[] = {"\"",   ",",     "\r",      "\n",         " ",
                                  "-",    "1e308", "5001",    "2147483648", std::string(1, '\0'),
                                  "\xFF", "nan",   "1.7e308", "1e-320"};
    std::mt19937 random(5);
    const auto below = [&](std::size_t end) { return random() % end; };
    int accepted = 0;
    for (int round = 0; round < 6000; ++round) {
        std::string text = written;
        for (std::size_t change = below(4); change < 4 && !text.empty(); ++change) {
            const std::size_t at = below(text.size());
            const std::size_t kind = below(5);
            if (kind == 0) text[at] = static_cast<char>(below(256));
            if (kind == 1) text.erase(at, below(40));
            if (kind == 2) text.insert(at, pieces[below(std::size(pieces))]);
            if (kind == 3) text.insert(at, text, below(text.size()), below(200));
            if (kind == 4) text[at] = static_cast<char>('0' + below(10));
        }
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
        accepted += ReadSetUpText(text, MaxGridCells).Values.has_value() ? 1 : 0;
    }
    EXPECT_GT(accepted, 100);
    EXPECT_LT(accepted, 5000);
}
