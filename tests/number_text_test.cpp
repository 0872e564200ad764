#include "core/model/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(ReadNumber, TakesEveryFormOfADecimalNumberAndNothingElse) {
    // clang-format off
    const struct { const char* text; double number; } rows[] = {
        {" 501", 501}, {".5", 0.5}, {"5.", 5}, {"-.25", -0.25}, {"+3", 3}, {"\t1e-08 ", 1e-8},
        {"1E3", 1000}, {"-0", 0}, {"1e+2", 100}, {"007", 7}, {"1e300", 1e300}, {"0.1261192", 0.1261192},
    };
    const char* refused[] = {"", " ", ".", "-", "+", "+-1", "--1", "1e", "1e+", "e5", "abc", "1 2",
                             "1,5", "inf", "nan", "-inf", "0x10", "1e999", "1d3", "1.2.3"};
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(ReadNumber(row.text), row.number) << row.text;
    for (const char* text : refused) EXPECT_EQ(ReadNumber(text), std::nullopt) << text;
}

TEST(RoundToEven, SplitsTiesToEvenAndStaysInRange) {
    constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
    const std::pair<double, int> rows[] = {{0.5, 0},      {1.5, 2},        {2.5, 2},
                                           {-0.5, 0},     {-1.5, -2},      {400.49, 400},
                                           {1e300, most}, {-1e300, least}, {std::nan(""), 0}};
    for (const auto& [value, rounded] : rows) EXPECT_EQ(RoundToEven(value), rounded) << value;
}

TEST(FormatNumber, ShowsDigitByDigit) {
    // clang-format off
    const struct { double value; const char *format, *text; } rows[] = {
        {1.5,       "##0.0####", "1.5"},       {2.0,       "##0.0####", "2.0"},
        {0.1261192, "##0.0####", "0.12612"},   {1049.9995, "##0.0####", "1049.9995"},
        {-1.870829, "##0.0####", "-1.87083"},  {-1e-9,     "##0.0####", "0.0"},
        {2.0,       "#0.####",   "2."},        {0.2,       "#0.####",   "0.2"},
        {0.0,       "#0.00####", "0.00"},      {1e-6,      "0.0000##",  "0.000001"},
        {3.0,       "0.0000##",  "3.0000"},    {12345.0,   "###0",      "12345"},
        {2.5,       "##0",       "2"},         {7.0,       "000",       "007"},
        {0.25,      "#.##",      ".25"},       {0.85,      "#0.0##",    "0.85"},
    };
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(FormatNumber(row.value, row.format), row.text);
    EXPECT_EQ(FormatNumber(1e300, "##0.0####").size(), 303u);
}

TEST(GeneralNumber, GivesTheShortestPlainText) {
    // clang-format off
    const struct { double value; const char* text; } rows[] = {
        {1.0,       "1"},         {0.1,       "0.1"},             {-8.0, "-8"},    {0.1 + 0.2, "0.3"},
        {1e-6,      "0.000001"},  {1e-8,      "1e-08"},           {1e15, "1e+15"}, {0.0,       "0"},
        {0.0999999, "0.0999999"}, {1.0 / 3.0, "0.333333333333333"}, {-1e-7, "-0.0000001"},
        {1e300,     "1e+300"},    {123456789012345.0, "123456789012345"},
        {99.9999999999999, "99.9999999999999"}, {999999999.999999, "999999999.999999"},
        {9.99999999999999e-06, "0.00000999999999999999"}, {999999999999999.9, "1000000000000000"},
    };
    // clang-format on
    for (const auto& row : rows) EXPECT_EQ(GeneralNumber(row.value), row.text);
    EXPECT_EQ(GeneralNumber(-17), "-17");
}
