#include "core/picture/space_time_raster.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>

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

// Tables that strain the arithmetic in different ways; each value takes one number of the
// generator.
using Value = float (*)(float part, int i, int j);
const Value Kinds[] = {
    [](float part, int, int) { return part * 3.0F - 1.0F; },
    [](float part, int, int) { return std::round(part); },  // ties
    [](float part, int, int) {                              // a few roundings apart
        return -1000.0F - std::round(part * 4.0F) * 6.1035156e-05F;
    },
    [](float, int i, int j) { return static_cast<float>((i + 3 * j) / 7 % 5); },  // runs
    [](float part, int, int) { return std::ldexp(part, static_cast<int>(part * 80.0F) - 40); },
};

Store MakeStore(Value value, int N, int NS, std::mt19937& random) {
    Store store(N, NS);
    for (int j = 1; j <= NS; ++j) {
        for (int i = 1; i <= N; ++i) {
            store.At(i, j) = value(static_cast<float>(random()) * 0x1p-32F, i, j);
        }
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
        {"means of parts", 5, {10, 60, 110, 160, 245, 0, 50, 100, 150, 200, 5, 5, 90, 90, 90, 40, 80, 120, 160, 33},
         3, 2, {30, 110, 201, 35, 101, 92}},
        {"one value, a pixel each",        2, {3e38F, 3e38F},             2, 1, {5, 5}},
        {"one value, four to a pixel",     2, {-3e38F, -3e38F, -3e38F, -3e38F}, 1, 1, {5}},
        {"one value, small",               1, {1e-30F, 1e-30F},           1, 1, {5}},
    };
    // clang-format on
    for (const auto& row : rows) {
        const Store store(row.N, row.cells);
        const Picture picture = Paint(store.Table(), row.W, row.H);
        EXPECT_EQ(picture.Pix, row.pix) << row.what;
        const auto [least, most] = std::minmax_element(row.cells.begin(), row.cells.end());
        EXPECT_TRUE(picture.Lo == *least && picture.Hi == *most) << row.what;
    }
}

// Checksums of pictures that were drawn one sample and one pixel after the other.
TEST(SpaceTimeLevels, AreExactInEveryShapeAndKind) {
    std::mt19937 random(4);
    const auto takePicture = [&](std::size_t kind, int N, int NS, int W, int H,
                                 std::uint32_t& sum) {
        const Store store = MakeStore(Kinds[kind], N, NS, random);
        for (const int level : Paint(store.Table(), W, H).Pix) {
            sum = (sum ^ static_cast<std::uint32_t>(level)) * 16777619U;
        }
    };
    // clang-format off
    const struct { int N, NS, W, H; std::uint32_t sum; } shapes[] = {
        {1, 1, 1, 1, 2193259547U},      {1, 1, 7, 5, 2260746983U},      {7, 5, 7, 5, 1066635260U},
        {8, 6, 7, 5, 4082801292U},      {9, 6, 7, 5, 3419914457U},      {9, 7, 7, 5, 486445627U},
        {8, 7, 7, 5, 1957120225U},      {3, 2, 17, 9, 3088517591U},     {2, 30, 17, 9, 1370733871U},
        {40, 3, 7, 9, 158325613U},      {40, 40, 1, 1, 1043669574U},    {501, 3, 45, 20, 3300860755U},
        {45, 60, 45, 6, 3778584185U},   {501, 60, 45, 19, 3928045339U}, {100, 60, 97, 3, 111782273U},
        {98, 2, 97, 44, 2386791514U},
    };
    // clang-format on
    for (const auto& shape : shapes) {
        std::uint32_t sum = 0;
        for (std::size_t kind = 0; kind < std::size(Kinds); ++kind) {
            takePicture(kind, shape.N, shape.NS, shape.W, shape.H, sum);
        }
        EXPECT_EQ(sum, shape.sum) << shape.N << " x " << shape.NS << " on " << shape.W << " x "
                                  << shape.H;
    }
    const auto upTo = [&](unsigned most) { return static_cast<int>(random() % most) + 1; };
    std::array<std::uint32_t, std::size(Kinds)> sums = {};
    for (std::size_t n = 0; n < 1500; ++n) {
        const int N = upTo(60), NS = upTo(40), W = upTo(40), H = upTo(30);
        takePicture(n % sums.size(), N, NS, W, H, sums[n % sums.size()]);
    }
    EXPECT_EQ(sums, (std::array<std::uint32_t, 5>{1678622005U, 1432837319U, 2745410477U,
                                                  2330086399U, 2165010880U}));
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
