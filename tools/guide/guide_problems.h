// The experiments of the guide, set up through the panel's own controls.
#pragma once

#include <QString>
#include <deque>
#include <vector>

#include "panel_driver.h"

// A control point as it is typed.
struct TypedPoint {
    int Cell;
    const char* Density;
    const char* Pressure;
    const char* Velocity;
};

// A problem that the guide keeps as a set-up file.
struct GuideSetUp {
    const char* Name;  // of the file, without ".txt"
    const char* TimeUnits;
    const char* PlotsPerTimeUnit;
    const char* Boundaries;  // "1" walls, "2" open ends, "4" periodic; the file does not hold them
    std::vector<TypedPoint> Points;
};

const std::vector<GuideSetUp>& GuideSetUps();

// Draws the problem in place of what the panel shows, on 400 cells. The unit of time stays.
void DrawByHand(Panel& panel, const GuideSetUp& setUp);

// Presses "Write Setup" or "Read Setup" and names the file.
void WriteSetUp(Panel& panel, const QString& path);
void ReadSetUp(Panel& panel, const QString& path);

// Presses "Sound Wave" and answers its seven prompts.
struct TypedWave {
    const char* RPlus = "0";
    const char* RPlusFrequency = "1";
    const char* RMinus = "0";
    const char* RMinusFrequency = "1";
    const char* R0 = "0";
    const char* R0Frequency = "1";
    const char* Velocity = "0";
};
void SetUpSoundWave(Panel& panel, const TypedWave& wave);

// The same type on both sides.
void ChooseBoundaries(Panel& panel, const char* type);

// Begins the run and follows it to its end. False if it does not end.
bool RunWhole(Panel& panel);

// Chooses what the space-time picture shows.
void ShowVariable(Panel& panel, const char* name);
