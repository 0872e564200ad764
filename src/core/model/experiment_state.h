// The record of the running experiment. It has no operations; the procedures that read and write
// it stand in the other folders, one header per subject. Lengths, times and gas values carry no
// unit. N below is NGridCells, and \ is truncating integer division.
#pragma once

#include <limits>
#include <string>

#include "core/model/offset_array.h"
#include "core/model/refusal.h"

struct ExperimentState {
    // A time that no problem has set yet, and that bounds nothing.
    static constexpr double Unlimited = std::numeric_limits<double>::infinity();

    // ---- Grid and gas ----
    int NGridCells = 400;        // N, the number of real cells, 6..MaxGridCells
    double NGridCellsD = 400.0;  // the same as a float
    int MaxGridCells = 5001;     // never changes
    double DX = 0.0;             // width of a cell of the uniform grid
    double Gamma = 1.4;          // ratio of specific heats; never changes
    double SoundSpeed0 = 1.0;    // reference sound speed: first bound of the time-step estimate

    // ---- State arrays, cells -6..10*(N\3)+7 ----
    // Cells 1..N are real. The NBDY cells beyond either end are ghosts, right only after
    // FillBoundaryZones. An accepted step trades the fields for the arrays of its results.
    OffsetArray<double> X;       // X[i] is the left edge of cell i, X[i+1] its right
    OffsetArray<double> Rho;     // density
    OffsetArray<double> P;       // pressure
    OffsetArray<double> Ux;      // velocity along the grid
    OffsetArray<double> Uy;      // transverse velocity
    OffsetArray<double> FSmoke;  // smoke marker, a passive tracer

    OffsetArray<double> UyNew;      // result of a time step for Uy, cells 1..N
    OffsetArray<double> FSmokeNew;  // result of a time step for FSmoke, cells 1..N

    // ---- Work arrays, cells -6..N+7 ----
    OffsetArray<double> C2;  // square of the sound speed, as last worked out by a set-up
    OffsetArray<double> C;   // sound speed, the root of C2

    // ---- State store, elements 0..StoreCapacity ----
    // Cell i of stored state s is element s*(N+2)+i, i from 0 to N+1: one ghost cell on either
    // side of the real ones. An element that was never stored is zero.
    OffsetArray<float> SRho;
    OffsetArray<float> SP;
    OffsetArray<float> SUx;
    OffsetArray<float> SUy;
    OffsetArray<float> SFSmoke;
    OffsetArray<float> SRPlus;             // right-going acoustic invariant, mean removed
    OffsetArray<float> SRMinus;            // left-going acoustic invariant, mean removed
    OffsetArray<float> SEntropy;           // P / Rho^Gamma
    OffsetArray<double> StoredT{0, 2001};  // time of stored state s; never resized
    int StoreCapacity = 402;               // upper index of the eight arrays
    int StoreOffset = 0;        // element at which the next state begins, or the loaded one
    int NStored = 0;            // states stored so far, the initial one included
    int StoreGeneration = 0;    // changes whenever what was stored does; new states only add
    int StoredStateNumber = 0;  // the state on display, 0 is the initial one

    // ---- Control points, entries 0..N+2, of which 0..NSelected+1 are in use ----
    // Entries 1..NSelected are the points, in strictly rising cells; entries 0 and NSelected+1
    // close the list at cells 0 and N+1.
    int NSelected = 0;
    OffsetArray<int> MSelList;       // cell
    OffsetArray<double> XSelList;    // position, set back a little from the face of the cell
    OffsetArray<double> RhoSelList;  // density
    OffsetArray<double> PSelList;    // pressure
    OffsetArray<double> VxSelList;   // velocity

    // ---- Clock and time-step control ----
    double Time = 0.0;                // exactly 0.0 until the first accepted step
    double DTime = 0.0;               // present time step
    double DTime0 = 0.0;              // time step at the start of the run
    double CourantNumber = 0.85;      // target, above 0 and below 1
    double PeriodTime = Unlimited;    // the problem's unit of time
    double Periods = 1.5;             // length of a run in units of PeriodTime
    double TStop = 0.0;               // problem time at which a run ends
    int NPlotsPerPeriod = 400;        // stored states per unit of time
    int NPlotsTotal = 600;            // NPlotsPerPeriod*Periods, to the nearest integer
    double PlotInterval = Unlimited;  // problem time between two stored states
    double TimeToPlot = 0.0;          // countdown to the next stored state

    // ---- Run control ----
    int Stopped = 1;  // 0 while ticks advance the experiment, else 1
    int MSec = 5;     // milliseconds between ticks, MSecMin..MSecMax
    int MSecMin = 1;
    int MSecMax = 2000;
    RunRefusal Refusal;     // why the last run came to a halt, until the next is begun or set up
    int SoundWaveMode = 0;  // 1 from the first sound-wave set-up to the end of the program

    // ---- Boundaries and scheme ----
    int MnBdry = 1;  // left boundary: 4 periodic, 1 reflecting, else continuation
    int MxBdry = 1;  // right boundary: 1 reflecting, else continuation
    int NBDY = 6;    // width of each ghost zone in cells; never changes
    std::string SchemeName = "Kestrel";  // "Kestrel", "Kestrel32", "Heron32" or "Plover"
    int NDifferenceScheme = 3;           // carried through the set-up files, used for nothing else
    double difcon = 0.3;                 // scheme constants of the Kestrel libraries
    double shkjmp = 0.2;
    double wavhaf = 1.0;
    double RhoFloor = 1e-08;  // lowest density after a step; never changes
    double PFloor = 1e-08;    // lowest pressure after a step; never changes
    double VFloor = 1e-08;    // smaller velocities become exactly 0; never changes
    double AuxFloor = 1e-08;  // fourth small constant of the libraries; never changes

    // ---- Selected cell ----
    int MSelected = 200;  // the cell on which the panel works, 1..N
    double RhoSel = 1.0;  // the values shown for it
    double PSel = 1.0 / 1.4;
    double VxSel = 0.0;

    // ---- Sound wave ----
    double RPlusAmp = 1.0;  // amplitudes and wave numbers of the three waves
    double RMinusAmp = 0.0;
    double R0Amp = 0.0;
    int RPlusFreq = 1;
    int RMinusFreq = 1;
    int R0Freq = 1;
    double U0 = -1.0;  // background velocity

    // ---- Axis ranges, Min < Max ----
    double RhoMin = 0.01;
    double RhoMax = 100.0;
    double PMin = 0.001;
    double PMax = 100.0;
    double VXMin = -100.0;
    double VXMax = 100.0;
    double RMinusMin = 0.0;  // range of R- as last plotted in sound-wave mode
    double RMinusMax = 0.0;

    // ---- Meter ----
    int MeterOn = 0;          // 1 while library calls are repeated and timed
    double TotalMflop = 0.0;  // since start-up or the last Restart
    double TotalSeconds = 0.0;
    double MflopsRate = 0.0;  // TotalMflop/TotalSeconds, as last shown

    // ---- Display and texts ----
    int SpaceTimeBig = 0;          // 1 while the space-time picture covers the plots
    int MultiplePlots = 0;         // 1 while plots are laid over one another
    std::string StudentIDDefault;  // caption of lblStudentID as the window came up
    std::string StudentName;       // answer to the name prompt
    std::string TitleText;         // title of the experiment
    int TitleSet = 0;              // 1 once a title has been entered

    // ---- Re-entry guards: 1 while the handler of that control is on the call stack ----
    int hsbDensityBusy = 0;
    int hsbPressureBusy = 0;
    int hsbVelocityBusy = 0;
    int hsbMSelectedBusy = 0;
    int txtDensityBusy = 0;
    int txtPressureBusy = 0;
    int txtVelocityBusy = 0;
    int txtMSelectedBusy = 0;
};
