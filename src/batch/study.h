// A study: many independent runs on all cores.
#pragma once

#include "batch/options.h"

// The exit status of the program. The worst of all runs counts.
enum class StudyStatus : int { Good = 0, RunRefused = 1, WrongUse = 2, CouldNotWrite = 3 };

// Does all runs, writes their files, prints their figures in the order of the plan, and names on
// standard error what went wrong, a line each.
StudyStatus DoStudy(const Options& options);

// Ends the study after the tick under way; for a signal handler.
void StopStudy();
bool IsStudyStopped();
