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
    int W;
    int H;
    Picture Result;
    double Scale = 0.0;
    std::vector<int> Pix;

    StepByStep(const SpaceTimeTable& table, int w, int h)
        : T(table), W(w), H(h), Pix(static_cast<std::size_t>((w + 1) * (h + 1) + 1), 0) {
        Scan();
        double top = std::max(Result.Hi, Result.Lo * 1.00000001 + 1e-10);
        if (Result.Hi == Result.Lo) top = Result.Lo + 1.0;  // all raw levels are 0
        Scale = 245.0 / (top - Result.Lo);
        if (T.N > W + 1 && T.NS > H + 1) {
            Average();
        } else {
            Spread();
        }
        Result.Pix.assign(Pix.begin() + 1, Pix.begin() + 1 + W * H);
    }

    float A(int i, int j) const { return T.State(j)[i]; }
    int& At(int c, int r) { return Pix[static_cast<std::size_t>((r - 1) * W + c)]; }
    static int Round(double value) { return static_cast<int>(std::nearbyint(value)); }

    void Scan() {
        std::vector<float> high(static_cast<std::size_t>(T.N + 2));
        for (int i = 1; i <= T.N; ++i) high[static_cast<std::size_t>(i)] = A(i, 1);
        std::vector<float> low = high;
        for (int j = 2; j <= T.NS; ++j) {
            for (int i = 1; i <= T.N; ++i) {
                float& h = high[static_cast<std::size_t>(i)];
                float& l = low[static_cast<std::size_t>(i)];
                if (A(i, j) > h) h = A(i, j);
                if (A(i, j) < l) l = A(i, j);
            }
        }
        Result.Hi = *std::max_element(high.begin() + 1, high.end() - 1);
        Result.Lo = *std::min_element(low.begin() + 1, low.end() - 1);
    }

    void Spread() {
        const double dx = static_cast<double>(W) / T.N;
        const double dy = static_cast<double>(H) / T.NS;
        double Y = 0.0;
        for (int j = 1; j <= T.NS; ++j) {
            const double Y0 = Y;
            Y = Y + dy;
            const int r0 = static_cast<int>(Y0) + 1;
            const double fy0 = r0 - Y0;
            const double fy1 = Y - static_cast<int>(Y);
            const int r1 = static_cast<int>(Y) + 1;
            double X = 0.0;
            int prev = 0;
            for (int i = 1; i <= T.N; ++i) {
                const double X0 = X;
                X = X + dx;
                const int c0 = static_cast<int>(X0) + 1;
                const double fx0 = c0 - X0;
                const double fx1 = X - static_cast<int>(X);
                const int c1 = static_cast<int>(X) + 1;
                const double f = (A(i, j) - Result.Lo) * Scale;
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
        const double sx = static_cast<double>(T.N) / W;
        const double sy = static_cast<double>(T.NS) / H;
        const double wx = 1 / sx;
        const double wy = 1 / sy;
        const double wxy = wy * wx;
        double Y = 0.0;
        for (int r = 1; r <= H; ++r) {
            const double Y0 = Y;
            Y = Y + sy;
            const int j0 = static_cast<int>(Y0) + 1;
            const double gy0 = (j0 - Y0) * wy;
            const double gy1 = (Y - static_cast<int>(Y)) * wy;
            const int j1 = static_cast<int>(Y) + 1;
            double X = 0.0;
            for (int c = 1; c <= W; ++c) {
                const double X0 = X;
                X = X + sx;
                const int i0 = static_cast<int>(X0) + 1;
                const double gx0 = (i0 - X0) * wx;
                const double gx1 = (X - static_cast<int>(X)) * wx;
                const int i1 = static_cast<int>(X) + 1;
                double S = 0.0;
                const auto add = [&](int j, double first, double within, double last) {
                    S = S + A(i0, j) * first;
                    for (int i = i0 + 1; i <= i1 - 1; ++i) S = S + A(i, j) * within;
                    if (gx1 > 1e-05) S = S + A(i1, j) * last;
                };
                add(j0, gy0 * gx0, gy0 * wx, gy0 * gx1);
                for (int j = j0 + 1; j <= j1 - 1; ++j) add(j, wy * gx0, wxy, wy * gx1);
                if (gy1 > 1e-05) add(std::max(j0 + 1, j1), gy1 * gx0, gy1 * wx, gy1 * gx1);
                At(c, r) = Round((S - Result.Lo) * Scale) + 5;
            }
        }
    }
};

// The kinds of tables that strain the arithmetic in different ways.
float Value(int kind, std::mt19937& random, int i, int j) {
    const auto number = [&] { return std::uniform_real_distribution<float>(0.0F, 1.0F)(random); };
    switch (kind) {
        case 0:
            return number() * 3.0F - 1.0F;
        case 1:
            return static_cast<float>(random() % 2);  // exact ties between levels
        case 2:
            return -1000.0F - std::round(number() * 4.0F) * 6.1035156e-05F;  // a few roundings
        case 3:
            return static_cast<float>((i + 3 * j) / 7 % 5);  // even runs of cells
        default:
            return std::exp(number() * 60.0F - 30.0F);
    }
}
constexpr int Kinds = 5;

Store MakeStore(int kind, int N, int NS, std::mt19937& random) {
    Store store(N, NS);
    for (int j = 1; j <= NS; ++j) {
        for (int i = 1; i <= N; ++i) store.At(i, j) = Value(kind, random, i, j);
    }
    return store;
}

}  // namespace

TEST(ScanAlign, RoundsUpToFourBytes) {
    EXPECT_EQ(ScanAlign(453), 456);
    EXPECT_EQ(ScanAlign(456), 456);
    EXPECT_EQ(ScanAlign(973), 976);
    EXPECT_EQ(ScanAlign(1), 4);
}

// The values 0 to 245 are their own raw levels, so that these are easily followed by hand.
TEST(SpaceTimeLevels, AreThoseWorkedOutByHand) {
    const struct {
        const char* what;
        int N;
        std::vector<float> cells;
        int W;
        int H;
        std::vector<int> pix;
    } rows[] = {
        {"one pixel each", 3, {0, 10, 20, 100, 200, 245}, 3, 2, {5, 15, 25, 105, 205, 250}},
        {"ties to even", 4, {0, 0.5F, 1.5F, 245}, 4, 1, {5, 5, 7, 250}},
        {"a shared column", 2, {0, 245}, 3, 1, {5, 128, 245}},
        {"raw levels inside a cell, in its first row only",
         2,
         {0, 100, 200, 245},
         6,
         4,
         {5,   0,   0,   105, 100, 100, 5,   5,   5,   105, 105, 105,  //
          205, 200, 200, 250, 245, 245, 205, 205, 205, 250, 250, 250}},
        {"three states in two rows", 1, {0, 245, 100}, 1, 2, {87, 153}},
        {"the last two cells of a column", 4, {0, 245, 100, 45}, 2, 2, {128, 78, 128, 78}},
        {"means of four",
         4,
         {0, 2, 245, 245, 4, 6, 245, 245, 9, 9, 1, 0, 9, 9, 1, 0},
         2,
         2,
         {8, 250, 14, 5}},
    };
    for (const auto& row : rows) {
        const Store store(row.N, row.cells);
        EXPECT_EQ(Paint(store.Table(), row.W, row.H).Pix, row.pix) << row.what;
    }
}

TEST(SpaceTimeLevels, AreThoseOfTheStepsOneByOne) {
    std::mt19937 random(4);
    const auto compare = [&](int kind, int N, int NS, int W, int H) {
        const Store store = MakeStore(kind, N, NS, random);
        const Picture drawn = Paint(store.Table(), W, H);
        const StepByStep steps(store.Table(), W, H);
        ASSERT_EQ(drawn.Lo, steps.Result.Lo);
        ASSERT_EQ(drawn.Hi, steps.Result.Hi);
        ASSERT_EQ(drawn.Pix, steps.Result.Pix)
            << "kind " << kind << ", " << N << " x " << NS << " on " << W << " x " << H;
    };
    const struct {
        int N, NS, W, H;
    } shapes[] = {{1, 1, 1, 1},    {1, 1, 7, 5},      {7, 5, 7, 5},     {8, 6, 7, 5},
                  {9, 6, 7, 5},    {9, 7, 7, 5},      {8, 7, 7, 5},     {3, 2, 17, 9},
                  {2, 30, 17, 9},  {40, 3, 7, 9},     {40, 40, 1, 1},   {501, 3, 45, 20},
                  {45, 60, 45, 6}, {501, 60, 45, 19}, {100, 60, 97, 3}, {98, 2, 97, 44}};
    for (const auto& shape : shapes) {
        for (int kind = 0; kind < Kinds; ++kind) {
            compare(kind, shape.N, shape.NS, shape.W, shape.H);
        }
    }
    const auto upTo = [&](unsigned most) { return static_cast<int>(random() % most) + 1; };
    for (int n = 0; n < 1500; ++n) compare(n % Kinds, upTo(60), upTo(40), upTo(40), upTo(30));
}

TEST(SpaceTimeLevels, OfOneValueAreTheLowest) {
    for (const float value : {0.0F, 1.0F, -0.01F, -5.0F, 3e38F, -3e38F, 1e-30F}) {
        for (const int n : {4, 9}) {
            const Store store(n, std::vector<float>(static_cast<std::size_t>(n * n), value));
            const Picture picture = Paint(store.Table(), 4, 4);
            EXPECT_EQ(picture.Pix, std::vector<int>(16, 5)) << value;
            EXPECT_EQ(picture.Lo, value);
            EXPECT_EQ(picture.Hi, value);
        }
    }
}

TEST(SpaceTimeRange, FindsExtremesInAnyCell) {
    for (const int N : {1, 2, 7, 8, 15, 16, 17, 33, 63}) {
        for (int i = 1; i <= N; ++i) {
            Store store(N, std::vector<float>(static_cast<std::size_t>(3 * N), 1.0F));
            store.At(i, 2) = 2.0F;
            store.At(N + 1 - i, 3) = -3.0F;
            SpaceTimeRange range;
            double lo = 0.0;
            double hi = 0.0;
            ScanSpaceTimeRange(store.Table(), range, lo, hi);
            EXPECT_EQ(lo, -3.0) << N << " cells, cell " << i;
            EXPECT_EQ(hi, 2.0) << N << " cells, cell " << i;
        }
    }
}

// A value that is not finite darkens or lightens its own pixels at most.
TEST(SpaceTimeLevels, BearValuesThatAreNotFinite) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    for (const float odd : {nan, inf, -inf}) {
        for (const int n : {4, 8}) {
            Store store(n, std::vector<float>(static_cast<std::size_t>(n * n), 245.0F));
            store.At(n, n) = 0.0F;
            const Picture before = Paint(store.Table(), 4, 4);
            store.At(1, 1) = odd;
            const Picture after = Paint(store.Table(), 4, 4);
            EXPECT_EQ(after.Lo, 0.0);
            EXPECT_EQ(after.Hi, 245.0);
            EXPECT_TRUE(
                std::equal(before.Pix.begin() + 1, before.Pix.end(), after.Pix.begin() + 1));
        }
    }
    const Store store(3, {nan, inf, -inf});
    EXPECT_EQ(Paint(store.Table(), 3, 1).Lo, 0.0);
}

// One raster over growing runs gives what a fresh one gives, through changes of the range, of the
// mode, of the variable and of the store.
TEST(SpaceTimeRaster, KeepsOnlyWhatStillHolds) {
    std::mt19937 random(17);
    constexpr int W = 20;
    constexpr int H = 12;
    for (const int N : {7, 20, 21, 22, 75}) {
        SpaceTimeRaster raster = MakeSpaceTimeRaster(W, H);
        Store density = MakeStore(0, N, 40, random);
        Store pressure = MakeStore(3, N, 40, random);
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

TEST(BlitSpaceTime, PutsTheLevelsRowByRowFromTheBottom) {
    const Store store(2, {0, 10, 20, 245});
    SpaceTimeRaster raster = MakeSpaceTimeRaster(5, 5);
    std::fill(raster.DibBits.begin(), raster.DibBits.end(), std::uint8_t{77});
    EXPECT_EQ(raster.biSizeImage, 40);
    Paint(store.Table(), 2, 2, raster);
    const std::vector<std::uint8_t> lower = {5, 5, 15, 15, 0, 0, 0, 0};
    const std::vector<std::uint8_t> upper = {25, 25, 250, 250, 0, 0, 0, 0};
    for (int row = 0; row < 5; ++row) {
        const std::vector<std::uint8_t> bytes(raster.DibBits.begin() + row * 8,
                                              raster.DibBits.begin() + row * 8 + 8);
        EXPECT_EQ(bytes, row < 2 ? lower : row < 4 ? upper : std::vector<std::uint8_t>(8, 0));
    }
}
