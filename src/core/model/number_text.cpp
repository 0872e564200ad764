#include "core/model/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

// A double in fixed notation has at most 309 digits before the point.
constexpr std::size_t FixedRoom = 400;

std::string Written(double value, std::chars_format format, int precision) {
    std::array<char, FixedRoom> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision);
    return {text.data(), end.ptr};
}

std::string Fixed(double value, int decimals) {
    return Written(value, std::chars_format::fixed, decimals);
}

// The power of ten of the first digit once the value is rounded to so many significant ones.
int ExponentOf(double value, int significant) {
    const std::string text = Written(value, std::chars_format::scientific, significant - 1);
    return std::stoi(text.substr(text.find('e') + 1));
}

void DropTrailingZeros(std::string& text, std::size_t shortest) {
    while (text.size() > shortest && text.back() == '0') text.pop_back();
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

}  // namespace

std::optional<double> ReadNumber(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') return std::nullopt;
    }
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (!std::isfinite(value)) return std::nullopt;  // "inf" and "nan" are words here
    return value;
}

int RoundToEven(double value) {
    if (std::isnan(value)) return 0;
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::nearbyint(value), lowest, highest));
}

std::string FormatNumber(double value, std::string_view format) {
    const std::size_t point = format.find('.');
    const std::string_view whole = format.substr(0, point);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view() : format.substr(point + 1);
    const auto wholeDigits = static_cast<std::size_t>(std::count(whole.begin(), whole.end(), '0'));
    const auto leastDecimals =
        static_cast<std::size_t>(std::count(fraction.begin(), fraction.end(), '0'));

    std::string digits = Fixed(std::abs(value), static_cast<int>(fraction.size()));
    if (!std::isfinite(value)) return value < 0.0 ? "-" + digits : digits;

    const std::size_t shownPoint = std::min(digits.find('.'), digits.size());
    if (shownPoint < wholeDigits) digits.insert(0, wholeDigits - shownPoint, '0');
    if (wholeDigits == 0 && digits.front() == '0') digits.erase(0, 1);
    if (!fraction.empty()) {
        DropTrailingZeros(digits, digits.find('.') + 1 + leastDecimals);
    } else if (point != std::string_view::npos) {
        digits.push_back('.');
    }
    const bool isZero = digits.find_first_not_of("0.") == std::string::npos;
    return std::signbit(value) && !isZero ? "-" + digits : digits;
}

std::string GeneralNumber(double value) {
    constexpr int significant = 15;
    constexpr double plainFrom = 1e-7;
    constexpr double plainBelow = 1e15;
    const double size = std::abs(value);
    if (value == 0.0) return "0";
    if (size < plainFrom || size >= plainBelow || !std::isfinite(value)) {
        return Written(value, std::chars_format::general, significant);
    }
    // Digits before the point, 0 or less for a number below 1, count into the 15.
    const int before = ExponentOf(value, significant) + 1;
    std::string text = Fixed(value, std::clamp(significant - before, 0, significant + 7));
    if (text.find('.') != std::string::npos) {
        DropTrailingZeros(text, text.find('.') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text;
}

std::string GeneralNumber(int value) {
    return std::to_string(value);
}

std::string ExactNumber(double value) {
    return Written(value, std::chars_format::general, std::numeric_limits<double>::max_digits10);
}
