// What a user sees of a scheme library that does what none should. The real loader finds the
// libraries by their names on LD_LIBRARY_PATH; each fault is a process of its own, because a
// library that has been loaded stays. The environment variable FAULT says which one is there.
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "panel/window/last_words.h"
#include "panel_test.h"

namespace {

// What the panel says of each fault.
// clang-format off
const std::map<std::string, std::string> Said = {
    {"Missing",                      "cannot be loaded (libKestrel"},
    {"NotALibrary",                  "cannot be loaded (/"},  // and the file that was found
    {"OtherEntryPoint",              ": KESTREL"},
    {"CourantOfTwo",                 "its Courant number stays at 1 or more, however short"},
    {"CourantIsNoNumber",            "its Courant number is not a number"},
    {"FirstStripsCourantIsNoNumber", "its Courant number is not a number"},
    {"PressureIsInfinite",           "it left a cell without a finite result"},
    {"LeavesOutACell",               "it left a cell without a finite result"},
    {"LeavesOutTheSmoke",            "it left a cell without a finite result"},
    {"GivesNothing",                 "it left a cell without a finite result"},
};
// clang-format on

class BadScheme : public PanelTest {
protected:
    std::string Caption() { return controls.lblStudentID->text().toStdString(); }
};

}  // namespace

TEST_F(BadScheme, StopsTheRunAndLeavesThePanelUsable) {
    const char* given = std::getenv("FAULT");
    ASSERT_NE(given, nullptr) << "run by ctest";
    if (given == std::string("Crashes")) {
        panel.Press("cmdBegin");
        EXPECT_DEATH(
            {
                PrepareLastWords();
                panel.Tick();
            },
            "crashed in .*libKestrel64.so");
        return;
    }
    ASSERT_TRUE(Said.contains(given)) << given;
    Ask("cmdGetTitle", {"My own scheme"});
    for (const char* scheme : {"Kestrel", "Kestrel32"}) {
        SCOPED_TRACE(scheme);
        panel.Press("cmdTest1");
        Ask("cmdNumericalScheme", {scheme, "0"});
        panel.Press("cmdBegin");
        const std::vector<double> before = Fields();
        EXPECT_FALSE(panel.Tick());
        EXPECT_EQ(Fields(), before);
        EXPECT_EQ(state.NStored, 1);
        const std::string said = Caption();
        EXPECT_EQ(said.rfind(std::string("The run has stopped: the scheme ") + scheme + " can", 0),
                  0U)
            << said;
        EXPECT_NE(said.find(Said.at(given)), std::string::npos) << said;

        panel.Press("cmdRestart");
        EXPECT_EQ(Caption(), "My own scheme");
        Ask("cmdNumericalScheme", {"Plover", "0"});
        panel.Press("cmdBegin");
        ASSERT_TRUE(panel.RunToEnd());
        EXPECT_GE(state.Time, 0.2);
        EXPECT_EQ(Caption(), "My own scheme");
        panel.Press("cmdRestart");
    }
}
