// Exact solutions of several jumps: each breaks into shocks, contacts and fans, and where two
// shocks or contacts meet, the states beside them break anew. The solution is exact until a fan
// meets anything. A wall is a plane of symmetry: the states and jumps beyond it are mirror images.
#pragma once

#include <memory>
#include <vector>

#include "core/analysis/exact_riemann.h"

class WaveTracking {
public:
    // states[k] lies left of jumps[k], the last state right of the last jump; jumps rise.
    WaveTracking(const std::vector<GasState>& states, const std::vector<double>& jumps,
                 double gamma);

    // False once a fan has met something, or if a vacuum opens.
    bool Exact() const { return exact_; }
    // When the next two fronts meet; infinite if none will.
    double NextMeeting() const;
    // Takes the solution past that meeting.
    void Meet();

    double Time() const { return time_; }           // of the last meeting
    double SpeedSpread() const { return spread_; }  // of the outermost waves that it made
    // Where the outermost fronts are; there must be one.
    double FirstFront(double time) const { return fronts_.front().At(time); }
    double LastFront(double time) const { return fronts_.back().At(time); }

    // Averages of the density between neighbouring edges at a time between the last meeting and
    // the next.
    std::vector<double> Densities(const std::vector<double>& edges, double time) const;

private:
    struct Pattern {  // what one jump has become
        ExactRiemann Solution;
        double Place;
        double Time;
    };
    struct Front {
        double Place;  // at Time
        double Time;
        double Speed;
        bool OfFan;
        double At(double time) const { return Place + Speed * (time - Time); }
    };
    struct Region {
        GasState State;                      // where uniform
        std::shared_ptr<const Pattern> Fan;  // null where uniform
        GasState At(double x, double time) const;
    };
    struct Waves {
        std::vector<Front> Fronts;
        std::vector<Region> Between;  // one fewer
    };
    struct Meeting {
        double Time;
        std::size_t Front;  // this one and the next
    };
    Waves Break(const GasState& left, const GasState& right, double place, double time);
    Meeting FindMeeting() const;

    double gamma_;
    double time_ = 0.0;
    double spread_ = 0.0;
    bool exact_ = true;
    std::vector<Front> fronts_;    // left to right
    std::vector<Region> regions_;  // regions_[k] lies left of fronts_[k]; one more than fronts
};
