// The pointer's shape while the window cannot answer.
#pragma once

struct ExperimentState;

// Shows the pointer of a program that is at work for as long as it lives, if what is going to be
// done with the control points will be felt. Less than about a tenth of a second is not worth it:
// the pointer would only flicker.
class BusyPointer {
public:
    explicit BusyPointer(const ExperimentState& state);
    ~BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;

private:
    bool isShown_;
};
