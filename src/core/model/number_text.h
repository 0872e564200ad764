// Numbers to text and back, the same on every machine: the point is the decimal separator whatever
// the locale. Boxes, prompts, captions and files all go through these.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The decimal number in a text, blanks and tabs around it allowed, a sign allowed, the zero before
// or the digits behind the point optional, an exponent allowed. Empty for anything else: half-typed
// text, letters, "inf", "nan", hexadecimal, or a number beyond the range of a double.
std::optional<double> ReadNumber(std::string_view text);

// The nearest integer, ties to even; the nearest end of the range for a number beyond it, and 0 for
// a NaN.
int RoundToEven(double value);

// The value in a display format such as "##0.0####": a 0 always shows a digit, a # shows one only
// if it is needed, and a point in the format always shows. "#0.####" shows 2 as "2.". A value that
// rounds to zero shows no sign.
std::string FormatNumber(double value, std::string_view format);

// The plain decimal text of a number: 15 significant digits without trailing zeros, with an
// exponent only below 1e-7 and from 1e15 on.
std::string GeneralNumber(double value);
std::string GeneralNumber(int value);

// 17 significant digits, which give the same double back.
std::string ExactNumber(double value);
