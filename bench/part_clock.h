// Tells the time of a whole run by the parts of the instrument, at two clock readings for each call
// of a part.
//
// The benchmark is linked with `--wrap` for the procedures at the seams: a call of one of them from
// another source file goes through a timed procedure of part_clock.cpp first. The instrument itself
// is the one that users run.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>

enum class Part : std::size_t {
    Other,    // boundary zones, accepting a step, axis ranges, allocations of a tick
    Scheme,   // calls into the scheme library
    Driver,   // cutting the grid into strips and putting the results back
    Store,    // snapshots
    Plots,    // curves of the line plots, their pictures included
    Picture,  // the space-time picture
    Widgets,  // puts of texts and values with their handlers, and all other events
};
constexpr std::size_t PartCount = 7;
constexpr std::array<const char*, PartCount> PartNames = {"other", "scheme",  "driver", "store",
                                                          "plots", "picture", "widgets"};

// Whatever time passes belongs to exactly one part: to the innermost that is under way.
class PartClock {
public:
    // The only one.
    static PartClock& Get();

    // Forgets all that was measured. No time passes from here, or from Pause, until Resume.
    void Forget() { *this = PartClock(); }
    void Pause();
    void Resume();

    // The part under way from now on; gives the one until now.
    Part TurnTo(Part part);

    // Time steps that were accepted.
    void CountStep() { steps_ += isRunning_ ? 1 : 0; }
    int Steps() const { return steps_; }

    double Seconds(Part part) const { return seconds_[static_cast<std::size_t>(part)]; }

private:
    using Clock = std::chrono::steady_clock;
    Part part_ = Part::Other;
    Clock::time_point since_;
    bool isRunning_ = false;
    std::array<double, PartCount> seconds_{};
    int steps_ = 0;
};

// Charges a part while it lives.
class TimeOf {
public:
    explicit TimeOf(Part part) : outer_(PartClock::Get().TurnTo(part)) {}
    ~TimeOf() { PartClock::Get().TurnTo(outer_); }
    TimeOf(const TimeOf&) = delete;
    TimeOf& operator=(const TimeOf&) = delete;

private:
    Part outer_;
};
