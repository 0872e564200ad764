#include "display/space_time_raster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

// A store of one variable whose bounding cells hold what must never be read.
struct Store {
    int N = 0;
    std::vector<float> A;

    Store(int n, int states)
        : N(n), A(static_cast<std::size_t>((n + 2) * states), std::numeric_limits<float>::max()) {}
    Store(int n, const std::vector<float>& cells) : Store(n, static_cast<int>(cells.size()) / n) {
        for (std::size_t k = 0; k < cells.size(); ++k) {
            At(static_cast<int>(k) % n + 1, static_cast<int>(k) / n + 1) = cells[k];
        }
    }
    int States() const { return static_cast<int>(A.size()) / (N + 2); }
    float& At(int i, int j) { return A[static_cast<std::size_t>((j - 1) * (N + 2) + i)]; }
    SpaceTimeTable Table(int NS, int generation = 0) const {
        return {A.data(), N, NS, N + 2, generation};
    }
    SpaceTimeTable Table() const { return Table(States()); }
};

struct Picture {
    std::vector<int> Pix;
    double Lo = 0.0;
    double Hi = 0.0;
};

Picture Paint(const SpaceTimeTable& table, int W, int H, SpaceTimeRaster& raster) {
    Picture picture;
    DrawSpaceTime(table, picture.Lo, picture.Hi, W, H, raster);
    picture.Pix.assign(raster.Pix.begin(), raster.Pix.end());
    return picture;
}

Picture Paint(const SpaceTimeTable& table, int W, int H) {
    SpaceTimeRaster raster = MakeSpaceTimeRaster(W, H);
    return Paint(table, W, H, raster);
}

// The picture written down step by step, one sample and one pixel after the other.
struct StepByStep {
    const SpaceTimeTable& T;
    const int W, H;
    double Lo = HUGE_VAL, Hi = -HUGE_VAL, Scale = 0.0;
    std::vector<int> Pix;  // and a margin that the steps may touch

    StepByStep(const SpaceTimeTable& table, int w, int h)
        : T(table), W(w), H(h), Pix(static_cast<std::size_t>((w + 1) * (h + 1)), 0) {
        for (int j = 1; j <= T.NS; ++j) {
            for (int i = 1; i <= T.N; ++i) {
                Lo = std::min<double>(Lo, A(i, j));
                Hi = std::max<double>(Hi, A(i, j));
            }
        }
        double top = std::max(Hi, Lo * 1.00000001 + 1e-10);
        if (Hi == Lo) top = Lo + 1.0;  // all raw levels are 0
        Scale = 245.0 / (top - Lo);
        T.N > W + 1 && T.NS > H + 1 ? Average() : Spread();
        Pix.resize(static_cast<std::size_t>(W * H));
    }

    float A(int i, int j) const { return T.State(j)[i]; }
    int& At(int c, int r) { return Pix[static_cast<std::size_t>((r - 1) * W + c - 1)]; }
    static int Round(double value) { return static_cast<int>(std::nearbyint(value)); }
    static int Cut(double value) { return static_cast<int>(value); }

    void Spread() {
        const double dx = static_cast<double>(W) / T.N, dy = static_cast<double>(H) / T.NS;
        double Y = 0.0;
        for (int j = 1; j <= T.NS; ++j) {
            const double Y0 = Y;
            Y = Y + dy;
            const int r0 = Cut(Y0) + 1, r1 = Cut(Y) + 1;
            const double fy0 = r0 - Y0, fy1 = Y - Cut(Y);
            double X = 0.0;
            int prev = 0;
            for (int i = 1; i <= T.N; ++i) {
                const double X0 = X;
                X = X + dx;
                const int c0 = Cut(X0) + 1, c1 = Cut(X) + 1;
                const double fx0 = c0 - X0, fx1 = X - Cut(X);
                const double f = (A(i, j) - Lo) * Scale;
                const int L = Round(f) + 5;
                const auto blend = [&](int c, double value) {
                    At(c, r0) = Round(At(c, r0) * (1 - fy0) + fy0 * value);
                };
                blend(c0, (1 - fx0) * prev + fx0 * L);
                for (int c = c0 + 1; c <= c1 - 1; ++c) blend(c, f);
                if (i == T.N && fx1 > 1e-05) blend(c1, f);
                const auto full = [&](int r) {
                    At(c0, r) = Round(At(c0, r) * (1 - fx0) + fx0 * L);
                    for (int c = c0 + 1; c <= c1 - 1; ++c) At(c, r) = L;
                    if (fx1 > 1e-05) At(c1, r) = L;
                };
                for (int r = r0 + 1; r <= r1 - 1; ++r) full(r);
                if (fy1 > 1e-05) full(r1 > r0 ? r1 : r0 + 1);
                prev = L;
            }
        }
    }

    void Average() {
        const double sx = static_cast<double>(T.N) / W, sy = static_cast<double>(T.NS) / H;
        const double wx = 1 / sx, wy = 1 / sy, wxy = wy * wx;
        double Y = 0.0;
        for (int r = 1; r <= H; ++r) {
            const double Y0 = Y;
            Y = Y + sy;
            const int j0 = Cut(Y0) + 1, j1 = Cut(Y) + 1;
            const double gy0 = (j0 - Y0) * wy, gy1 = (Y - Cut(Y)) * wy;
            double X = 0.0;
            for (int c = 1; c <= W; ++c) {
                const double X0 = X;
                X = X + sx;
                const int i0 = Cut(X0) + 1, i1 = Cut(X) + 1;
                const double gx0 = (i0 - X0) * wx, gx1 = (X - Cut(X)) * wx;
                double S = 0.0;
                const auto add = [&](int j, double first, double within, double last) {
                    S = S + A(i0, j) * first;
                    for (int i = i0 + 1; i <= i1 - 1; ++i) S = S + A(i, j) * within;
                    if (gx1 > 1e-05) S = S + A(i1, j) * last;
                };
                add(j0, gy0 * gx0, gy0 * wx, gy0 * gx1);
                for (int j = j0 + 1; j <= j1 - 1; ++j) add(j, wy * gx0, wxy, wy * gx1);
                if (gy1 > 1e-05) add(std::max(j0 + 1, j1), gy1 * gx0, gy1 * wx, gy1 * gx1);
                At(c, r) = Round((S - Lo) * Scale) + 5;
            }
        }
    }
};

// Tables that strain the arithmetic in different ways.
using Value = float (*)(std::mt19937& random, int i, int j);
float Part(std::mt19937& random) {
    return std::uniform_real_distribution<float>(0.0F, 1.0F)(random);
}
const Value Kinds[] = {
    [](std::mt19937& random, int, int) { return Part(random) * 3.0F - 1.0F; },
    [](std::mt19937& random, int, int) { return static_cast<float>(random() % 2); },  // ties
    [](std::mt19937& random, int, int) {  // a few roundings apart
        return -1000.0F - std::round(Part(random) * 4.0F) * 6.1035156e-05F;
    },
    [](std::mt19937&, int i, int j) { return static_cast<float>((i + 3 * j) / 7 % 5); },  // runs
    [](std::mt19937& random, int, int) { return std::exp(Part(random) * 60.0F - 30.0F); },
};

Store MakeStore(Value value, int N, int NS, std::mt19937& random) {
    Store store(N, NS);
    for (int j = 1; j <= NS; ++j) {
        for (int i = 1; i <= N; ++i) store.At(i, j) = value(random, i, j);
    }
    return store;
}

}  // namespace

// The values 0 to 245 are their own raw levels, so that these are easily followed by hand.
TEST(SpaceTimeLevels, AreThoseWorkedOutByHand) {
    // clang-format off
    const struct { const char* what; int N; std::vector<float> cells; int W, H; std::vector<int> pix; } rows[] = {
        {"one pixel each",                 3, {0, 10, 20, 100, 200, 245}, 3, 2, {5, 15, 25, 105, 205, 250}},
        {"ties to even",                   4, {0, 0.5F, 1.5F, 245},       4, 1, {5, 5, 7, 250}},
        {"a shared column",                2, {0, 245},                   3, 1, {5, 128, 245}},
        {"three states in two rows",       1, {0, 245, 100},              1, 2, {87, 153}},
        {"the last two cells of a column", 4, {0, 245, 100, 45},          2, 2, {128, 78, 128, 78}},
        {"raw levels inside a cell, in its first row only", 2, {0, 100, 200, 245}, 6, 4,
         {5,   0,   0,   105, 100, 100, 5,   5,   5,   105, 105, 105,
          205, 200, 200, 250, 245, 245, 205, 205, 205, 250, 250, 250}},
        {"means of four", 4, {0, 2, 245, 245, 4, 6, 245, 245, 9, 9, 1, 0, 9, 9, 1, 0}, 2, 2, {8, 250, 14, 5}},
    };
    // clang-format on
    for (const auto& row : rows) {
        const Store store(row.N, row.cells);
        EXPECT_EQ(Paint(store.Table(), row.W, row.H).Pix, row.pix) << row.what;
    }
}

TEST(SpaceTimeLevels, AreThoseOfTheStepsOneByOne) {
    std::mt19937 random(4);
    const auto compare = [&](int kind, int N, int NS, int W, int H) {
        const Store store = MakeStore(Kinds[kind], N, NS, random);
        const Picture drawn = Paint(store.Table(), W, H);
        const StepByStep steps(store.Table(), W, H);
        ASSERT_EQ(drawn.Lo, steps.Lo);
        ASSERT_EQ(drawn.Hi, steps.Hi);
        ASSERT_EQ(drawn.Pix, steps.Pix)
            << "kind " << kind << ", " << N << " x " << NS << " on " << W << " x " << H;
    };
    // clang-format off
    const struct { int N, NS, W, H; } shapes[] = {
        {1, 1, 1, 1},    {1, 1, 7, 5},      {7, 5, 7, 5},     {8, 6, 7, 5},     {9, 6, 7, 5},
        {9, 7, 7, 5},    {8, 7, 7, 5},      {3, 2, 17, 9},    {2, 30, 17, 9},   {40, 3, 7, 9},
        {40, 40, 1, 1},  {501, 3, 45, 20},  {45, 60, 45, 6},  {501, 60, 45, 19},
        {100, 60, 97, 3}, {98, 2, 97, 44},
    };
    // clang-format on
    for (const auto& shape : shapes) {
        for (int kind = 0; kind < 5; ++kind) compare(kind, shape.N, shape.NS, shape.W, shape.H);
    }
    const auto upTo = [&](unsigned most) { return static_cast<int>(random() % most) + 1; };
    for (int n = 0; n < 1500; ++n) compare(n % 5, upTo(60), upTo(40), upTo(40), upTo(30));
}

TEST(SpaceTimeLevels, OfOneValueAreTheLowest) {
    for (const float value : {0.0F, 1.0F, -5.0F, 3e38F, -3e38F, 1e-30F}) {
        for (const int n : {4, 9}) {
            const Store store(n, std::vector<float>(static_cast<std::size_t>(n * n), value));
            const Picture picture = Paint(store.Table(), 4, 4);
            EXPECT_EQ(picture.Pix, std::vector<int>(16, 5)) << value;
            EXPECT_TRUE(picture.Lo == value && picture.Hi == value) << value;
        }
    }
}

TEST(SpaceTimeRange, FindsExtremesInAnyCell) {
    for (const int N : {1, 2, 15, 16, 17, 33, 63}) {
        for (int i = 1; i <= N; ++i) {
            Store store(N, std::vector<float>(static_cast<std::size_t>(3 * N), 1.0F));
            store.At(i, 2) = 2.0F;
            store.At(N + 1 - i, 3) = -3.0F;
            const Picture picture = Paint(store.Table(), 1, 1);
            EXPECT_TRUE(picture.Lo == -3.0 && picture.Hi == 2.0) << N << " cells, cell " << i;
        }
    }
}

// A value that is not finite darkens or lightens its own pixels at most.
TEST(SpaceTimeLevels, BearValuesThatAreNotFinite) {
    constexpr float inf = std::numeric_limits<float>::infinity();
    for (const float odd : {std::nanf(""), inf, -inf}) {
        for (const int n : {4, 8}) {
            Store store(n, std::vector<float>(static_cast<std::size_t>(n * n), 245.0F));
            store.At(n, n) = 0.0F;
            const Picture before = Paint(store.Table(), 4, 4);
            store.At(1, 1) = odd;
            Picture after = Paint(store.Table(), 4, 4);
            EXPECT_TRUE(after.Lo == 0.0 && after.Hi == 245.0);
            after.Pix[0] = before.Pix[0];
            EXPECT_EQ(after.Pix, before.Pix);
        }
    }
    EXPECT_EQ(Paint(Store(3, {std::nanf(""), inf, -inf}).Table(), 3, 1).Lo, 0.0);
}

// One raster over growing runs gives what a fresh one gives, through changes of the range, of the
// mode, of the variable and of the store.
TEST(SpaceTimeRaster, KeepsOnlyWhatStillHolds) {
    std::mt19937 random(17);
    constexpr int W = 20, H = 12;
    for (const int N : {7, 20, 21, 22, 75}) {
        SpaceTimeRaster raster = MakeSpaceTimeRaster(W, H);
        Store density = MakeStore(Kinds[0], N, 40, random);
        const Store pressure = MakeStore(Kinds[3], N, 40, random);
        const auto same = [&](const Store& store, int NS, int generation) {
            const SpaceTimeTable table = store.Table(NS, generation);
            ASSERT_EQ(Paint(table, W, H, raster).Pix, Paint(table, W, H).Pix)
                << N << " cells, " << NS << " states, generation " << generation;
        };
        for (int NS = 2; NS <= 30; NS += 1 + NS % 3) same(density, NS, 1);
        for (int NS = 30; NS <= 40; ++NS) same(NS % 4 == 0 ? pressure : density, NS, 1);
        same(density, 40, 1);
        std::reverse(density.A.begin(), density.A.end());
        same(density, 40, 2);
        density.At(3, 3) = 7.0F;
        same(density, 39, 2);
    }
}

TEST(BlitSpaceTime, PutsTheLevelsRowByRowFromTheBottomIntoWholeWords) {
    EXPECT_EQ(ScanAlign(453), 456);
    EXPECT_EQ(ScanAlign(456), 456);
    SpaceTimeRaster raster = MakeSpaceTimeRaster(5, 5);
    EXPECT_EQ(raster.biSizeImage, 40);
    std::fill(raster.DibBits.begin(), raster.DibBits.end(), std::uint8_t{77});
    Paint(Store(2, {0, 10, 20, 245}).Table(), 2, 2, raster);
    const int expected[] = {5,  5,  15,  15,  0, 0, 0, 0, 5,  5,  15,  15,  0, 0, 0, 0,  //
                            25, 25, 250, 250, 0, 0, 0, 0, 25, 25, 250, 250, 0, 0, 0, 0,  //
                            0,  0,  0,   0,   0, 0, 0, 0};
    EXPECT_TRUE(std::equal(raster.DibBits.begin(), raster.DibBits.end(), std::begin(expected),
                           std::end(expected)));
}
