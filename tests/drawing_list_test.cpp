#include "core/picture/drawing_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using Points = std::vector<DrawnPoint>;

// The points of the item at that place, which is a curve.
Points CurveAt(const DrawingList& list, std::size_t at) {
    const auto points = list.PointsOf(std::get<DrawnCurve>(list.Items().at(at)));
    return {points.begin(), points.end()};
}

}  // namespace

TEST(DrawingList, GathersSegmentsIntoCurves) {
    DrawingList list;
    list.LineOn(1, 2);  // the current point is 0, 0 to begin with
    list.LineOn(3, 4);
    list.BoxFilled(5, 5, 2, -1);
    list.LineOn(6, 7);  // a box leaves the current point where it is
    list.LineFrom(10, 10, 11, 11);
    list.EndCurve();
    list.LineOn(12, 12);

    ASSERT_EQ(list.Items().size(), 5U);
    EXPECT_EQ(CurveAt(list, 0), (Points{{0, 0}, {1, 2}, {3, 4}}));
    const auto& box = std::get<DrawnBox>(list.Items()[1]);
    EXPECT_EQ(box.Opposite, (DrawnPoint{7, 4}));
    EXPECT_EQ(CurveAt(list, 2), (Points{{3, 4}, {6, 7}}));
    EXPECT_EQ(CurveAt(list, 3), (Points{{10, 10}, {11, 11}}));
    EXPECT_EQ(CurveAt(list, 4), (Points{{11, 11}, {12, 12}}));
    EXPECT_EQ(list.PointCount(), 11U + 2U - 2U);

    list.ClearItems();
    list.LineOn(1, 1);
    EXPECT_EQ(CurveAt(list, 0), (Points{{12, 12}, {1, 1}}));
    list.Clear();
    list.LineOn(1, 1);
    EXPECT_EQ(CurveAt(list, 0), (Points{{0, 0}, {1, 1}}));
}

TEST(DrawingList, KeepsItsStorageFromPictureToPicture) {
    DrawingList list;
    const auto draw = [&list] {
        list.Clear();
        list.LineFrom(0, 0, 1, 1);
        for (int i = 0; i < 5000; ++i) list.LineOn(static_cast<float>(i), 0);
        for (int i = 0; i < 100; ++i) list.BoxOutline(static_cast<float>(i), 0, 1, 1);
        std::ranges::fill(list.Gray(40, 30), std::uint8_t{7});
        return std::vector<const void*>{
            list.Items().data(), list.PointsOf(std::get<DrawnCurve>(list.Items().front())).data(),
            list.LevelsOf(std::get<DrawnGray>(list.Items().back())).data()};
    };
    const auto first = draw();
    EXPECT_EQ(draw(), first);
}

TEST(DrawingList, GivesEachGrayImageItsOwnBlackLevels) {
    DrawingList list;
    std::ranges::fill(list.Gray(3, 2), std::uint8_t{200});
    list.Clear();
    EXPECT_EQ(std::ranges::count(list.Gray(3, 2), 0), 6) << "levels of an earlier picture";
    std::ranges::fill(list.Gray(2, 2), std::uint8_t{9});
    EXPECT_EQ(std::ranges::count(list.LevelsOf(std::get<DrawnGray>(list.Items()[0])), 0), 6);
    EXPECT_EQ(std::ranges::count(list.LevelsOf(std::get<DrawnGray>(list.Items()[1])), 9), 4);
}
