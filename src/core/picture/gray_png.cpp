#include "core/picture/gray_png.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <string_view>

namespace {

// Section 5.5 of the PNG standard (ISO/IEC 15948) and annex D for the polynomial.
std::uint32_t Crc32(std::string_view bytes) {
    constexpr std::uint32_t polynomial = 0xEDB88320;
    constexpr auto table = [] {
        std::array<std::uint32_t, 256> remainders{};
        for (std::uint32_t byte = 0; byte < remainders.size(); ++byte) {
            std::uint32_t value = byte;
            for (int bit = 0; bit < 8; ++bit) {
                value = (value & 1) != 0 ? polynomial ^ (value >> 1) : value >> 1;
            }
            remainders[byte] = value;
        }
        return remainders;
    }();
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char c : bytes)
        crc = table[(crc ^ static_cast<std::uint8_t>(c)) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

// RFC 1950, section 2.2.
std::uint32_t Adler32(std::string_view bytes) {
    constexpr std::uint32_t modulus = 65521;
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char c : bytes) {
        a = (a + static_cast<std::uint8_t>(c)) % modulus;
        b = (b + a) % modulus;
    }
    return (b << 16) | a;
}

std::string BigEndian(std::uint32_t value) {
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
            static_cast<char>(value >> 8), static_cast<char>(value)};
}

std::string Chunk(std::string_view type, std::string_view data) {
    const std::string checked = std::string(type).append(data);
    return BigEndian(static_cast<std::uint32_t>(data.size())) + checked + BigEndian(Crc32(checked));
}

// A zlib stream of stored blocks (RFC 1951, section 3.2.4).
std::string Stored(std::string_view bytes) {
    constexpr std::size_t maxBlock = 65535;
    std::string stream = "\x78\x01";
    for (std::size_t at = 0; at < bytes.size(); at += maxBlock) {
        const std::string_view block = bytes.substr(at, maxBlock);
        const bool isLast = at + block.size() == bytes.size();
        const auto low = static_cast<char>(block.size() & 0xFF);
        const auto high = static_cast<char>(block.size() >> 8);
        stream += {static_cast<char>(isLast), low, high, static_cast<char>(~low),
                   static_cast<char>(~high)};
        stream += block;
    }
    return stream + BigEndian(Adler32(bytes));
}

}  // namespace

std::string GrayPng(std::span<const std::uint8_t> levels, int width, int height) {
    assert(width >= 1 && height >= 1);
    const auto rowLength = static_cast<std::size_t>(width);
    assert(levels.size() == rowLength * static_cast<std::size_t>(height));

    std::string rows;
    rows.reserve(levels.size() + static_cast<std::size_t>(height));
    for (std::size_t at = 0; at < levels.size(); at += rowLength) {
        rows += '\0';  // no filter
        const auto row = levels.subspan(at, rowLength);
        rows.append(row.begin(), row.end());
    }

    const std::string size = BigEndian(static_cast<std::uint32_t>(width)) +
                             BigEndian(static_cast<std::uint32_t>(height));
    const std::string_view eightBitGray("\x08\0\0\0\0", 5);
    return "\x89PNG\r\n\x1A\n" + Chunk("IHDR", size + std::string(eightBitGray)) +
           Chunk("IDAT", Stored(rows)) + Chunk("IEND", "");
}
