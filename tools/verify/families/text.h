// Formatted text in the manner of printf.
#pragma once

#include <array>
#include <cstdio>
#include <string>

template <typename... Values>
std::string Text(const char* format, const Values&... values) {
    std::array<char, 600> text = {};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}
