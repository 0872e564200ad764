#include "panel/window/panel_layout.h"

#include "panel/browsing/stored_state_browser.h"
#include "panel/controls.h"
#include "panel/entry/option_prompts.h"
#include "panel/entry/run_parameters.h"
#include "panel/entry/value_entry.h"
#include "panel/picture/space_time_view.h"
#include "panel/plots/plot_picking.h"
#include "panel/problems/grid_size.h"
#include "panel/problems/point_buttons.h"
#include "panel/problems/riemann_tests.h"
#include "panel/problems/set_up_files.h"
#include "panel/problems/sound_wave_button.h"
#include "panel/run/metronome.h"
#include "panel/run/run_control.h"

namespace {

constexpr PanelFont Plain11 = {11, false};
constexpr PanelFont Plain13 = {13, false};
constexpr PanelFont Bold11 = {11, true};
constexpr PanelFont Bold13 = {13, true};
constexpr PanelFont Bold18 = {18, true};
constexpr PanelFont Bold19 = {19, true};
constexpr PanelFont Bold24 = {24, true};

constexpr bool Still = true;
constexpr bool NoStill = false;
constexpr bool Boxed = true;
constexpr bool NoBox = false;
constexpr bool Centred = true;
constexpr bool Left = false;
constexpr bool InTwips = true;
constexpr bool InPixels = false;
constexpr QRgb Black = 0x000000;

constexpr const char* StudentIDText =
    "Your name and your title for this experiment go here.  To provide this information, just "
    "click on the \"get title\" button at the top middle of this form.   Please note that the "
    "current problem time is displayed in the box just above this title.";

constexpr const char* SpaceTimeTip =
    "The selected distribution in space-time appears in this window.  Click on this window to "
    "paint it small, double click to paint it big.";

constexpr const char* PlotDescription =
    "A curve along the tube. The boxes below it hold the ends of its axis. The arrow keys go from "
    "cell to cell; the values of the selected cell stand in boxes of their own.";

constexpr const char* SpaceTimeDescription =
    "The stored states as a gray picture: the tube from left to right, time upward, lighter is "
    "more. Enter makes it big, Escape small.";

}  // namespace

// clang-format off
constexpr std::array<ButtonRow, 25> Buttons = {{
    {&Controls::cmdBegin,                 "cmdBegin",                 "Begin",            {13440, 1320, 1215, 975},  0x008000, NoStill, Bold18,  35, cmdBegin_Click, "Press to begin the calculation (from the beginning)."},
    {&Controls::cmdPause,                 "cmdPause",                 "Pause",            {9720, 1680, 1455, 615},   0xFF0000, NoStill, Bold18,  31, cmdPause_Click, "Press to pause the calculation."},
    {&Controls::cmdContinue,              "cmdContinue",              "Continue",         {11520, 1680, 1455, 615},  0x00C000, NoStill, Bold18,  32, cmdContinue_Click, "Press to continue the calculation."},
    {&Controls::cmdRestart,               "cmdRestart",               "Restart",          {13440, 120, 1215, 975},   0xFF0000, NoStill, Bold18,  33, cmdRestart_Click, "Press to stop the calculation and prepare to begin it again."},
    {&Controls::cmdNumericalScheme,       "cmdNumericalScheme",       "  PPM?   Mflops?", {7080, 10560, 735, 615},   0xC00000, NoStill, Bold11,  66, cmdNumericalScheme_Click, "Click here to select the difference scheme."},
    {&Controls::cmdBoundaryConditionType, "cmdBoundaryConditionType", "Bdrys",            {7140, 120, 615, 375},     0xFF8000, NoStill, Bold11,  14, cmdBoundaryConditionType_Click, "Click here to clear the plotting windows."},
    {&Controls::cmdGetDiffConsts,         "cmdGetDiffConsts",         "Get Diff Consts",  {8760, 1560, 735, 735},    0xFF0000, NoStill, Bold11,  24, cmdGetDiffConsts_Click, "Click here to change the default constants that control the special PPM shock dissipation."},
    {&Controls::cmdGetTitle,              "cmdGetTitle",              " Get Title",       {7920, 120, 735, 615},     0xC00000, NoStill, Bold11,  18, cmdGetTitle_Click, "Click here to be prompted for your name and a title for this experiment."},
    {&Controls::cmdDocumentation,         "cmdDocumentation",         "? DOCUMENT ?",     {13080, 120, 255, 2175},   Plain,    NoStill, Plain11, 34, cmdDocumentation_Click, "Click here to get a grayscale plot."},
    {&Controls::cmdSinglePlots,           "cmdSinglePlots",           "Single",           {7140, 600, 615, 375},     0xFFFF00, NoStill, Bold11,  12, cmdSinglePlots_Click, "Click here to display only a single plot at a time."},
    {&Controls::cmdMultiplePlots,         "cmdMultiplePlots",         "Multi",            {7140, 1080, 615, 375},    0x0000FF, NoStill, Bold11,  13, cmdMultiplePlots_Click, "Click here to display multiple plots at a time."},
    {&Controls::cmdReadSetUp,             "cmdReadSetUp",             " Read Setup",      {8760, 120, 735, 615},     0xFFFF00, NoStill, Bold11,  22, cmdReadSetUp_Click, "Click here to read problem set up from a disk file (which you will specify)."},
    {&Controls::cmdWriteSetUp,            "cmdWriteSetUp",            " Write Setup",     {8760, 840, 735, 615},     0xFF8000, NoStill, Bold11,  23, cmdWriteSetUp_Click, "Click here to write problem set up to a disk file (which you will specify)."},
    {&Controls::cmdSoundWave,             "cmdSoundWave",             "Sound Wave",       {7920, 840, 735, 615},     0x0000C0, NoStill, Bold11,  17, cmdSoundWave_Click, "Click here to set up initial conditions for sound wave propagation experiments."},
    {&Controls::cmdSelect,                "cmdSelect",                "Select",           {3840, 120, 872, 372},     Plain,    NoStill, Bold13,  5,  cmdSelect_Click, "Press to select a new grid cell"},
    {&Controls::cmdDeselect,              "cmdDeselect",              "Deselect",         {4820, 120, 1117, 372},    Plain,    NoStill, Bold13,  6,  cmdDeselect_Click, "Press to deselect the present grid cell"},
    {&Controls::cmdReset,                 "cmdReset",                 "Reset",            {6045, 120, 872, 372},     Plain,    NoStill, Bold13,  7,  cmdReset_Click, "Press to deselect all grid cells but the first and the last."},
    {&Controls::cmdTest1,                 "cmdTest1",                 "Test 1",           {240, 10560, 1455, 615},   0x00C000, Still,   Bold24,  58, cmdTest1_Click, "Click here to set up for Test 1."},
    {&Controls::cmdTest2,                 "cmdTest2",                 "Test 2",           {1920, 10560, 1455, 615},  0x00C000, Still,   Bold24,  59, cmdTest2_Click, "Click here to set up for Test 2."},
    {&Controls::cmdTest3,                 "cmdTest3",                 "Test 3",           {3600, 10560, 1455, 615},  0x00C000, Still,   Bold24,  60, cmdTest3_Click, "Click here to set up for Test 3."},
    {&Controls::cmdTest4,                 "cmdTest4",                 "Test 4",           {5280, 10560, 1455, 615},  0x00C000, Still,   Bold24,  61, cmdTest4_Click, "Click here to set up for Test 4."},
    {&Controls::cmdTest5,                 "cmdTest5",                 "Test 5",           {8160, 10560, 1455, 615},  0x00C000, Still,   Bold24,  62, cmdTest5_Click, "Click here to set up for Test 5."},
    {&Controls::cmdTest6,                 "cmdTest6",                 "Test 6",           {9840, 10560, 1455, 615},  0x00C000, Still,   Bold24,  63, cmdTest6_Click, "Click here to set up for Test 6."},
    {&Controls::cmdTest7,                 "cmdTest7",                 "Test 7",           {11520, 10560, 1455, 615}, 0x00C000, Still,   Bold24,  64, cmdTest7_Click, "Click here to set up for Test 7."},
    {&Controls::cmdTest8,                 "cmdTest8",                 "Test 8",           {13200, 10560, 1455, 615}, 0x00C000, Still,   Bold24,  65, cmdTest8_Click, "Click here to set up for Test 8."},
}};

constexpr std::array<TextBoxRow, 17> TextBoxes = {{
    {&Controls::txtNGridCells,        "txtNGridCells",        " 501",     {120, 120, 1332, 372},    Centred, 0,  txtNGridCells_Change, "N Grid Cells",      "enter the number of grid cells here"},
    {&Controls::txtMSelected,         "txtMSelected",         " 251",     {120, 600, 1332, 372},    Centred, 2,  txtMSelected_Change, "M Selected",        "Enter the number of the selected grid cell"},
    {&Controls::txtDensity,           "txtDensity",           " 1.0",     {120, 1080, 1332, 372},   Centred, 42, txtDensity_Change, "Density",           "Enter the density of the selected grid cell here."},
    {&Controls::txtPressure,          "txtPressure",          "1.0",      {120, 1560, 1332, 372},   Centred, 41, txtPressure_Change, "Pressure",          "Enter the pressure of the selected grid cell here."},
    {&Controls::txtVelocity,          "txtVelocity",          " 0.0000",  {120, 2040, 1332, 372},   Centred, 39, txtVelocity_Change, "Velocity",          "Enter the velocity of the selected grid cell here."},
    {&Controls::txtCourantNumber,     "txtCourantNumber",     " 0.5",     {7920, 2040, 735, 345},   Left,    20, txtCourantNumber_Change, "Courant Number",    "The Courant number target for the computation is entered here."},
    {&Controls::txtMSec,              "txtMSec",              " 5",       {9720, 1080, 972, 372},   Centred, 29, txtMSec_Change, "msec per step",     "Enter the number of milliseconds per time step for this run"},
    {&Controls::txtNPeriods,          "txtNPeriods",          " 2",       {9720, 600, 972, 372},    Centred, 27, txtNPeriods_Change, "Time Units to Run", "Enter the number of fundamental periods of sound wave propagation for this run"},
    {&Controls::txtNPlotsPerPeriod,   "txtNPlotsPerPeriod",   " 20",      {9720, 120, 972, 372},    Centred, 25, txtNPlotsPerPeriod_Change, "Plots / Time Unit", "Enter the number of snap shots desired per fundamental period of sound wave propagation."},
    {&Controls::txtStoredStateNumber, "txtStoredStateNumber", "0",        {7140, 2040, 615, 345},   Centred, 10, txtStoredStateNumber_Change, "Stored State",      "The number of the stored state being displayed is shown here."},
    {&Controls::txtTime,              "txtTime",              " t = 0.0", {6960, 9360, 1335, 372},  Left,    50, nullptr, "Time",              "The time corresponding to the plots presently displayed appears in this window."},
    {&Controls::txtDensityMin,        "txtDensityMin",        " 1.0",     {120, 5640, 1332, 372},   Centred, 51, nullptr, "Density minimum",   "The minimum density value for the y-axis is shown here."},
    {&Controls::txtDensityMax,        "txtDensityMax",        " 1.0",     {5520, 5640, 1332, 372},  Centred, 52, nullptr, "Density maximum",   "The maximum density value for the y-axis is shown here."},
    {&Controls::txtPressureMin,       "txtPressureMin",       " 1.0",     {7920, 5640, 1332, 372},  Centred, 55, nullptr, "Pressure minimum",  "The minimum pressure value for the y-axis is shown here."},
    {&Controls::txtPressureMax,       "txtPressureMax",       " 1.0",     {13320, 5640, 1332, 372}, Centred, 56, nullptr, "Pressure maximum",  "The maximum pressure value for the y-axis is shown here."},
    {&Controls::txtVelocityMin,       "txtVelocityMin",       " 1.0",     {360, 9360, 1332, 372},   Centred, 53, nullptr, "Velocity minimum",  "The minimum velocity value for the y-axis is shown here."},
    {&Controls::txtVelocityMax,       "txtVelocityMax",       " 1.0",     {5400, 9360, 1332, 372},  Centred, 54, nullptr, "Velocity maximum",  "The maximum velocity value for the y-axis is shown here."},
}};

constexpr std::array<LabelRow, 15> Labels = {{
    {&Controls::lblNGridCells,           "lblNGridCells",           "N Grid Cells",         {1680, 120, 1812, 372},   0x0000C0,    Boxed, 0x00FF00, Bold13,  Centred, 1,  "The number of mass points may not exceed 5000"},
    {&Controls::lblMSelected,            "lblMSelected",            "M Selected",           {1680, 600, 1812, 372},   0x0000C0,    Boxed, 0x00FF00, Bold13,  Centred, 3,  "The value displayed at the left is the number of the selected grid cell"},
    {&Controls::lblDensity,              "lblDensity",              "Density",              {1680, 1080, 1815, 375},  0x0000C0,    Boxed, 0x00FF00, Bold13,  Centred, 40, "The value displayed is the density in the selected grid cell"},
    {&Controls::lblPressure,             "lblPressure",             "Pressure",             {1680, 1560, 1815, 375},  0x0000C0,    Boxed, 0x00FF00, Bold13,  Centred, 38, "The value displayed is the pressure in the selected grid cell"},
    {&Controls::lblVelocity,             "lblVelocity",             "Velocity",             {1680, 2040, 1815, 375},  0x0000C0,    Boxed, 0x00FF00, Bold13,  Centred, 37, "The value displayed is the velocity in the selected grid cell"},
    {&Controls::lblCourantNumber,        "lblCourantNumber",        "Courant Number",       {7920, 1560, 735, 375},   0xFF8000,    NoBox, Black,    Bold11,  Centred, 19, "The Courant number target for the computation appears in the box below."},
    {&Controls::lblMSec,                 "lblMSec",                 "msec per step",        {10920, 1080, 2055, 375}, 0xC00000,    Boxed, 0x00FF00, Bold13,  Centred, 30, ""},
    {&Controls::lblNPeriods,             "lblNPeriods",             "Time Units to Run",    {10920, 600, 2055, 375},  0xC00000,    Boxed, 0x00FF00, Bold13,  Centred, 28, ""},
    {&Controls::lblNPlotsPerPeriod,      "lblNPlotsPerPeriod",      "Plots / Time Unit",    {10920, 120, 2055, 375},  0xC00000,    Boxed, 0x00FF00, Bold13,  Centred, 26, ""},
    {&Controls::lblStoredState,          "lblStoredState",          "Stored  State",        {7140, 1560, 615, 375},   0xFF0000,    NoBox, 0x00FF00, Bold11,  Centred, 11, "The stored state corresponding to the dump number in the box below is now displayed."},
    {&Controls::lblDensityPlot,          "lblDensityPlot",          " Density",             {960, 5640, 5055, 375},   Transparent, NoBox, 0xC0C000, Bold19,  Centred, 46, "The above plot shows the density."},
    {&Controls::lblPressurePlot,         "lblPressurePlot",         " Pressure",            {8760, 5640, 5055, 375},  Transparent, NoBox, 0xC0C000, Bold19,  Centred, 48, "The stored position of the string corresponding to the dump number in the box below is now displayed."},
    {&Controls::lblVelocityPlot,         "lblVelocityPlot",         "Velocity",             {960, 9360, 5055, 375},   Transparent, NoBox, 0xC0C000, Bold19,  Centred, 47, "The plot above shows the velocity distribution."},
    {&Controls::lblDensitySpaceTimePlot, "lblDensitySpaceTimePlot", "Grayscale Space-Time", {11160, 9360, 3495, 375}, Transparent, NoBox, 0xC0C000, Bold19,  Centred, 49, "The grayscale plot above shows the space-time distribution of the density."},
    {&Controls::lblStudentID,            "lblStudentID",            StudentIDText,          {120, 9840, 14655, 615},  Transparent, NoBox, 0xFFFFFF, Plain13, Left,    16, ""},
}};

constexpr std::array<SurfaceRow, 4> Surfaces = {{
    {&Controls::pctDensityPlot,  "pctDensityPlot",  {120, 2520, 6800, 2895},  InTwips,  8,  pctDensityPlot_MouseDown, nullptr, nullptr, &Controls::hsbMSelected, "Density plot", PlotDescription,  "The plot of the density distribution appears in this window."},
    {&Controls::pctPressurePlot, "pctPressurePlot", {7920, 2520, 6800, 2895}, InTwips,  21, pctPressurePlot_MouseDown, nullptr, nullptr, &Controls::hsbMSelected, "Pressure plot", PlotDescription, "The plot of the pressure distribution appears in this window."},
    {&Controls::pctVelocityPlot, "pctVelocityPlot", {120, 6240, 6800, 2895},  InTwips,  15, pctVelocityPlot_MouseDown, nullptr, nullptr, &Controls::hsbMSelected, "Velocity plot", PlotDescription, "The plot of the velocity appears in this window."},
    {&Controls::pctSpaceTime,    "pctSpaceTime",    {7920, 6240, 6800, 2895}, InPixels, 36, pctSpaceTime_MouseDown, pctSpaceTime_Click, pctSpaceTime_DblClick, nullptr, "Space-time picture", SpaceTimeDescription, SpaceTimeTip},
}};

constexpr std::array<ScrollBarRow, 5> ScrollBars = {{
    {&Controls::hsbMSelected,         "hsbMSelected",         {3840, 600, 3077, 372},  Qt::Horizontal, 4,  hsbMSelected_Change, hsbMSelected_Scroll, "M Selected"},
    {&Controls::hsbDensity,           "hsbDensity",           {3840, 1080, 3077, 372}, Qt::Horizontal, 45, hsbDensity_Change, hsbDensity_Scroll, "Density"},
    {&Controls::hsbPressure,          "hsbPressure",          {3840, 1560, 3077, 372}, Qt::Horizontal, 44, hsbPressure_Change, hsbPressure_Scroll, "Pressure"},
    {&Controls::hsbVelocity,          "hsbVelocity",          {3840, 2040, 3077, 372}, Qt::Horizontal, 43, hsbVelocity_Change, hsbVelocity_Scroll, "Velocity"},
    {&Controls::vsbStoredStateNumber, "vsbStoredStateNumber", {7140, 2520, 615, 6615}, Qt::Vertical,   9,  vsbStoredStateNumber_Change, vsbStoredStateNumber_Scroll, "Stored State"},
}};

constexpr ListBoxRow GrayVariables =
    {&Controls::lstGrayVariable, "lstGrayVariable", {"Density", "Pressure", "Velocity", "R+", "R-", "R0 (Entropy)", "VY", "FSmoke"},
     {8520, 9360, 2415, 396}, Bold19, 57, lstGrayVariable_Click, "Grayscale variable", "Select the variable to appear in the grayscale space-time display."};

constexpr std::array<KeyRow, 14> Keys = {{
    {"F5",      &Controls::cmdBegin},
    {"Ctrl+F5", &Controls::cmdRestart},
    {"F6",      &Controls::cmdPause},
    {"F7",      &Controls::cmdContinue},
    {"Ctrl+O",  &Controls::cmdReadSetUp},
    {"Ctrl+S",  &Controls::cmdWriteSetUp},
    {"Ctrl+1",  &Controls::cmdTest1},
    {"Ctrl+2",  &Controls::cmdTest2},
    {"Ctrl+3",  &Controls::cmdTest3},
    {"Ctrl+4",  &Controls::cmdTest4},
    {"Ctrl+5",  &Controls::cmdTest5},
    {"Ctrl+6",  &Controls::cmdTest6},
    {"Ctrl+7",  &Controls::cmdTest7},
    {"Ctrl+8",  &Controls::cmdTest8},
}};

constexpr TimerRow Metronome = {&Controls::tmrMetronome, "tmrMetronome", 10, tmrMetronome_Timer};

constexpr DialogRow FileDialog = {&Controls::CommonDialog1, "CommonDialog1"};
// clang-format on
