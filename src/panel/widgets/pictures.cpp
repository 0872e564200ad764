#include "panel/widgets/pictures.h"

#include <QRgb>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

// Both pictures show layers of dye that vortices have rolled up. Every pixel asks where its parcel
// of fluid came from; the height there gives the layer, and the distance along it tells how much of
// the layer's patch is seen. Lengths are in units of the picture's height.

namespace {

struct Vortex {
    float X;
    float Y;
    float Radius;
    float Turn;  // radians by which its middle has turned, clockwise positive
};

// The dye at one height. Heights between two layers get a smooth mixture.
struct Layer {
    float Height;
    QRgb Colour;
    QRgb Patch;
};

// Where fluid came from, in table steps: 16 bits before the point and 16 behind.
struct Origin {
    std::int32_t Along;
    std::int32_t Height;
};

constexpr int TableSize = 2048;
constexpr float Reach = 10.0F;  // squared radii from a vortex beyond which nothing has turned
constexpr int NodeSpacing = 8;  // pixels between two places whose origin is worked out

using Tints = std::array<QRgb, TableSize>;

float SmoothStep(float part) {
    return part * part * (3.0F - 2.0F * part);
}

// A colour between two, at a part of 0 to 256. Red and blue are worked out in one number.
QRgb Mixed(QRgb a, QRgb b, std::uint32_t part) {
    constexpr std::uint32_t redAndBlue = 0xFF00FF;
    constexpr std::uint32_t green = 0x00FF00;
    const auto mixed = [=](std::uint32_t mask) {
        return (((a & mask) * (256 - part) + (b & mask) * part) >> 8) & mask;
    };
    return 0xFF000000 | mixed(redAndBlue) | mixed(green);
}

// Fine fringes, as in a picture of density gradients, let the layers shimmer.
QRgb WithFringes(QRgb colour, float height) {
    const float fringe = std::sin(height * 210.0F) * std::sin(height * 47.0F);
    return Mixed(colour, qRgb(0, 0, 0), static_cast<std::uint32_t>(70.0F + 70.0F * fringe));
}

template <std::size_t Count>
Tints TintsOf(const std::array<Layer, Count>& layers, QRgb Layer::*tint) {
    Tints tints{};
    for (int i = 0; i < TableSize; ++i) {
        const float height = static_cast<float>(i) / TableSize;
        std::size_t above = 1;
        while (above + 1 < Count && layers[above].Height < height) ++above;
        const Layer& low = layers[above - 1];
        const Layer& high = layers[above];
        const float part = std::clamp((height - low.Height) / (high.Height - low.Height), 0.F, 1.F);
        const QRgb mixed =
            Mixed(low.*tint, high.*tint, static_cast<std::uint32_t>(256.0F * SmoothStep(part)));
        tints[static_cast<std::size_t>(i)] = WithFringes(mixed, height);
    }
    return tints;
}

// How much of a patch is seen along a layer, 0 to 256.
std::array<std::uint32_t, TableSize> PatchStrengths() {
    std::array<std::uint32_t, TableSize> strengths{};
    for (int i = 0; i < TableSize; ++i) {
        const float turns = 2.0F * std::numbers::pi_v<float> * static_cast<float>(i) / TableSize;
        const float wave =
            0.5F + 0.3F * std::sin(3.0F * turns) + 0.2F * std::sin(7.0F * turns + 1.F);
        strengths[static_cast<std::size_t>(i)] = static_cast<std::uint32_t>(256.0F * wave * wave);
    }
    return strengths;
}

Origin OriginOf(float x, float y, const std::vector<Vortex>& vortices) {
    for (const Vortex& vortex : vortices) {
        const float dx = x - vortex.X;
        const float dy = y - vortex.Y;
        const float distance = (dx * dx + dy * dy) / (vortex.Radius * vortex.Radius);
        if (distance > Reach) continue;
        const float turn = vortex.Turn * std::exp(-distance);
        const float cosine = std::cos(turn);
        const float sine = std::sin(turn);
        x = vortex.X + dx * cosine + dy * sine;
        y = vortex.Y + dy * cosine - dx * sine;
    }
    constexpr float fixed = 65536.0F * TableSize;
    // Half a table in, so that no origin near the picture is negative.
    constexpr float shrink = 0.5F;
    return {static_cast<std::int32_t>(std::clamp(0.25F + shrink * x, 0.F, 7.F) * fixed),
            static_cast<std::int32_t>(std::clamp(y, 0.F, 0.999F) * fixed)};
}

// What is worked out of a picture of that height.
struct Part {
    QRect Seen;
    int WholeHeight;
};

// The first node at or before a pixel.
int NodeBefore(int pixel) {
    return pixel / NodeSpacing * NodeSpacing;
}

// One row of nodes, from before the left edge of what is seen to past its right edge.
std::vector<Origin> NodeRow(const Part& part, int y, const std::vector<Vortex>& vortices) {
    std::vector<Origin> row;
    const auto unit = static_cast<float>(part.WholeHeight);
    const int end = part.Seen.right() + 1 + NodeSpacing;
    for (int x = NodeBefore(part.Seen.left()); x < end; x += NodeSpacing) {
        row.push_back(
            OriginOf(static_cast<float>(x) / unit, static_cast<float>(y) / unit, vortices));
    }
    return row;
}

// The origin part/NodeSpacing of the way from one to another.
Origin Between(const Origin& a, const Origin& b, int part) {
    return {a.Along + (b.Along - a.Along) / NodeSpacing * part,
            a.Height + (b.Height - a.Height) / NodeSpacing * part};
}

template <std::size_t Count>
QImage DyedFlow(const Part& part, const std::vector<Vortex>& vortices,
                const std::array<Layer, Count>& layers) {
    const Tints ground = TintsOf(layers, &Layer::Colour);
    const Tints patches = TintsOf(layers, &Layer::Patch);
    const std::array<std::uint32_t, TableSize> strengths = PatchStrengths();
    const auto tint = [&](const Origin& origin) {
        const auto height = static_cast<std::size_t>(origin.Height >> 16);
        const auto along = static_cast<std::size_t>(origin.Along >> 16) % TableSize;
        return Mixed(ground[height], patches[height], strengths[along]);
    };

    const QRect& seen = part.Seen;
    QImage picture(seen.size(), QImage::Format_RGB32);
    if (picture.isNull()) return picture;  // no memory: nothing is drawn in its place
    const int leftmost = NodeBefore(seen.left());
    const int topmost = NodeBefore(seen.top());
    std::vector<Origin> upper = NodeRow(part, topmost, vortices);
    for (int top = topmost; top <= seen.bottom(); top += NodeSpacing) {
        const std::vector<Origin> lower = NodeRow(part, top + NodeSpacing, vortices);
        const int lastRow = std::min(top + NodeSpacing - 1, seen.bottom());
        for (int y = std::max(top, seen.top()); y <= lastRow; ++y) {
            auto* const pixels = reinterpret_cast<QRgb*>(picture.scanLine(y - seen.top()));
            Origin right = Between(upper[0], lower[0], y - top);
            for (std::size_t node = 1; node < upper.size(); ++node) {
                const Origin left = right;
                right = Between(upper[node], lower[node], y - top);
                const int first = leftmost + static_cast<int>(node - 1) * NodeSpacing;
                const int last = std::min(first + NodeSpacing - 1, seen.right());
                for (int x = std::max(first, seen.left()); x <= last; ++x) {
                    pixels[x - seen.left()] = tint(Between(left, right, x - first));
                }
            }
        }
        upper = lower;
    }
    return picture;
}

}  // namespace

QImage BackgroundPicture(const QSize& seen) {
    const QRect whole(0, 0, 1400, 1400);
    const std::vector<Vortex> vortices = {
        {0.16F, 0.20F, 0.17F, 2.9F},  {0.52F, 0.16F, 0.13F, -2.8F}, {0.33F, 0.40F, 0.13F, 2.9F},
        {0.60F, 0.38F, 0.13F, -3.0F}, {0.05F, 0.47F, 0.11F, -2.4F}, {0.80F, 0.20F, 0.13F, 2.6F},
        {0.30F, 0.80F, 0.22F, -2.8F}, {0.78F, 0.75F, 0.20F, 2.8F},
    };
    constexpr std::array<Layer, 13> layers = {{
        {0.00F, 0xFF02040C, 0xFF06162E},
        {0.08F, 0xFF071A3C, 0xFF0A3A4C},
        {0.15F, 0xFF01030A, 0xFF085660},
        {0.21F, 0xFF0A1E4A, 0xFF0B3848},
        {0.27F, 0xFF030612, 0xFF6A4322},
        {0.32F, 0xFF06122E, 0xFF3A2818},
        {0.38F, 0xFF0B2458, 0xFF0A2A4E},
        {0.44F, 0xFF01020A, 0xFF0A5660},
        {0.51F, 0xFF081C42, 0xFF0C3C58},
        {0.56F, 0xFF02040E, 0xFF70481F},
        {0.64F, 0xFF0A1F4C, 0xFF0A4456},
        {0.80F, 0xFF02050F, 0xFF0A565C},
        {1.00F, 0xFF071634, 0xFF4A3320},
    }};
    const QRect part(QPoint(), seen.boundedTo(whole.size()));
    return DyedFlow({part, whole.height()}, vortices, layers);
}

QImage StillPicture(const QSize& seen) {
    const QRect whole(0, 0, 731, 553);
    const std::vector<Vortex> vortices = {
        {0.62F, 0.48F, 0.065F, 3.4F}, {0.74F, 0.50F, 0.050F, -2.4F}, {0.20F, 0.40F, 0.20F, -3.5F},
        {1.10F, 0.60F, 0.20F, 3.5F},  {0.66F, 0.15F, 0.18F, 3.0F},   {0.60F, 0.85F, 0.18F, -3.0F},
    };
    constexpr std::array<Layer, 9> layers = {{
        {0.00F, 0xFF0A1E6E, 0xFF2A1040},
        {0.25F, 0xFF1440B0, 0xFF801020},
        {0.42F, 0xFF102A80, 0xFF2050C8},
        {0.465F, 0xFFB01808, 0xFFE04008},
        {0.50F, 0xFFF08010, 0xFFD02808},
        {0.535F, 0xFFC02008, 0xFFF09018},
        {0.58F, 0xFF1838A8, 0xFF901018},
        {0.75F, 0xFF0A1A60, 0xFFB04010},
        {1.00F, 0xFF401028, 0xFF102878},
    }};
    const QSize size = seen.boundedTo(whole.size());
    const QPoint corner((whole.width() - size.width()) / 2, (whole.height() - size.height()) / 2);
    return DyedFlow({QRect(corner, size), whole.height()}, vortices, layers);
}
