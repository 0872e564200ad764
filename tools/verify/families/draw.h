// Random numbers that a seed fixes on every machine.
#pragma once

#include <cmath>
#include <cstdint>
#include <random>
#include <string>

class Draw {
public:
    // Each case of each family has numbers of its own, whatever else is drawn.
    Draw(std::uint64_t seed, const std::string& family, int number) {
        std::uint64_t hash = 14695981039346656037u ^ seed;  // FNV-1a
        for (const char letter : family + "/" + std::to_string(number)) {
            hash ^= static_cast<unsigned char>(letter);
            hash *= 1099511628211u;
        }
        random_.seed(hash);
    }

    double Uniform(double low, double high) {
        return low + (high - low) * (static_cast<double>(random_() >> 11) * 0x1p-53);
    }
    double Logarithmic(double low, double high) {
        return std::exp(Uniform(std::log(low), std::log(high)));
    }
    int Whole(int low, int high) {
        return low + static_cast<int>(random_() % static_cast<std::uint64_t>(high - low + 1));
    }
    double Sign() { return Whole(0, 1) == 0 ? -1.0 : 1.0; }
    bool Chance(double share) { return Uniform(0.0, 1.0) < share; }

private:
    std::mt19937_64 random_;
};
