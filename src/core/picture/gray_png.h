// A gray image as a PNG file, for where another format is not understood.
#pragma once

#include <cstdint>
#include <span>
#include <string>

// The bytes of a PNG file of width by height levels, 8 bits each, the top row first. The pixels are
// stored without compression: the file is a few bytes larger than the image.
std::string GrayPng(std::span<const std::uint8_t> levels, int width, int height);
