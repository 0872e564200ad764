// One call of a scheme library on one strip: the arrays that the entry point is given, and the
// call.
#pragma once

#include <array>
#include <cstddef>
#include <deque>
#include <vector>

#include "scheme_calls/loaded_scheme.h"
#include "schemes/scheme_entry_points.h"

// Where the arrays of a call lie. Memory comes back zeroed and lives as long as the storage.
class ArrayStorage {
public:
    virtual ~ArrayStorage() = default;
    virtual void* Take(std::size_t bytes) = 0;
};

class PlainStorage : public ArrayStorage {
public:
    void* Take(std::size_t bytes) override {
        return blocks_.emplace_back(bytes).data();  // as new aligns, for any float
    }

private:
    std::deque<std::vector<std::byte>> blocks_;
};

template <typename Float>
class StripCall {
public:
    StripCall(SchemeKind kind, int width, ArrayStorage& storage);

    // Fills the inputs with cells offset+1-B to offset+width+B of the flow; what lies past the
    // flow's own arrays becomes 0.
    void Load(const Flow& flow, int offset);
    void SetNumbers(const SchemeConstants& constants, double timeStep);
    // Calls the entry point; Courant and Ops go on from what they hold.
    void Run(void* entry);

    std::size_t Cells() const { return static_cast<std::size_t>(width_ + 2 * Flow::B); }

    // Inputs: Edges has Cells() + 1 elements, the plain rows Cells(), the 25 rows 25 times that.
    Float* Edges;
    std::array<Float*, 5> Lines;        // density, pressure, two velocities, smoke
    std::array<Float*, 5> Rows;         // density, pressure, two velocities, zero; null for Heron32
    std::array<Float, 9> Numbers = {};  // time step, gamma, four floors, three constants

    // Results: Cells() + 1 elements each, the third velocity among them.
    std::array<Float*, 5> Results;  // density, pressure, two velocities, smoke
    Float* UzResult;
    Float Courant = 0;
    std::array<int, 8> Ops = {};

private:
    SchemeKind kind_;
    int width_;
};
