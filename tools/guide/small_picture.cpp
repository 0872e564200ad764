#include "guide/small_picture.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t MostColours = 256;

struct CountedColour {
    QRgb Rgb;
    long long Count;
};

int Channel(QRgb rgb, int channel) {
    return static_cast<int>(rgb >> (8 * channel)) & 0xFF;
}

// Colours that are to become one.
struct ColourBox {
    std::vector<CountedColour> Colours;
    double Weight = 0.0;  // what is gained by a split, 0 for a single colour

    long long Population() const {
        long long sum = 0;
        for (const CountedColour& colour : Colours) sum += colour.Count;
        return sum;
    }

    struct Side {
        int Channel;
        int Length;
    };

    Side LongestSide() const {
        std::array<int, 3> lengths{};
        for (int channel = 0; channel < 3; ++channel) {
            const auto [low, high] = std::minmax_element(
                Colours.begin(), Colours.end(), [channel](const auto& a, const auto& b) {
                    return Channel(a.Rgb, channel) < Channel(b.Rgb, channel);
                });
            lengths[static_cast<std::size_t>(channel)] =
                Channel(high->Rgb, channel) - Channel(low->Rgb, channel);
        }
        const auto* longest = std::max_element(lengths.begin(), lengths.end());
        return {static_cast<int>(longest - lengths.begin()), *longest};
    }

    void Weigh() {
        const double length = LongestSide().Length;
        Weight = static_cast<double>(Population()) * length * length;
    }

    QRgb Mean() const {
        std::array<long long, 3> sums{};
        for (const CountedColour& colour : Colours) {
            for (int channel = 0; channel < 3; ++channel) {
                sums[static_cast<std::size_t>(channel)] +=
                    colour.Count * Channel(colour.Rgb, channel);
            }
        }
        const long long all = Population();
        const auto mean = [&](std::size_t channel) {
            return static_cast<int>((sums[channel] + all / 2) / all);
        };
        return qRgb(mean(2), mean(1), mean(0));
    }

    // Leaves the lower half of the pixels here and gives the upper half.
    ColourBox SplitUpperHalf() {
        const int side = LongestSide().Channel;
        std::sort(Colours.begin(), Colours.end(), [side](const auto& a, const auto& b) {
            return std::pair(Channel(a.Rgb, side), a.Rgb) < std::pair(Channel(b.Rgb, side), b.Rgb);
        });
        const long long half = Population() / 2;
        long long below = Colours.front().Count;
        auto cut = Colours.begin() + 1;
        while (cut + 1 != Colours.end() && below < half) below += (cut++)->Count;
        ColourBox upper{{cut, Colours.end()}};
        Colours.erase(cut, Colours.end());
        upper.Weigh();
        Weigh();
        return upper;
    }
};

ColourBox AllColours(const QImage& picture) {
    std::unordered_map<QRgb, long long> counts;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x) ++counts[line[x] | 0xFF000000U];
    }
    ColourBox box;
    for (const auto& [rgb, count] : counts) box.Colours.push_back({rgb, count});
    std::sort(box.Colours.begin(), box.Colours.end(),
              [](const auto& a, const auto& b) { return a.Rgb < b.Rgb; });
    return box;
}

std::vector<ColourBox> CutAtMedians(ColourBox all) {
    std::vector<ColourBox> boxes{std::move(all)};
    boxes.front().Weigh();
    while (boxes.size() < MostColours) {
        const auto next =
            std::max_element(boxes.begin(), boxes.end(),
                             [](const auto& a, const auto& b) { return a.Weight < b.Weight; });
        if (next->Weight == 0.0) break;
        ColourBox upper = next->SplitUpperHalf();
        boxes.push_back(std::move(upper));
    }
    return boxes;
}

}  // namespace

QImage WithPalette(const QImage& picture) {
    const QImage full = picture.convertToFormat(QImage::Format_RGB32);
    std::unordered_map<QRgb, int> indexOf;
    QList<QRgb> palette;
    for (const ColourBox& box : CutAtMedians(AllColours(full))) {
        for (const CountedColour& colour : box.Colours) {
            indexOf[colour.Rgb] = static_cast<int>(palette.size());
        }
        palette.append(box.Mean());
    }
    QImage small(full.size(), QImage::Format_Indexed8);
    small.setColorTable(palette);
    for (int y = 0; y < full.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(full.constScanLine(y));
        uchar* to = small.scanLine(y);
        for (int x = 0; x < full.width(); ++x) {
            to[x] = static_cast<uchar>(indexOf.at(from[x] | 0xFF000000U));
        }
    }
    return small;
}
