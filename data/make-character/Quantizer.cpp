#include "Quantizer.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace lumo
{
namespace
{

constexpr int maxColours = 255;

struct Entry {
    std::uint32_t colour; // 0x00RRGGBB
    std::uint64_t count;
};

int channel(std::uint32_t colour, int which)
{
    return static_cast<int>((colour >> (16 - 8 * which)) & 0xFF);
}

struct Box {
    std::vector<Entry> entries;

    // The channel with the widest spread, and that spread.
    std::pair<int, int> widest() const
    {
        std::pair<int, int> best{0, -1};
        for (int c = 0; c < 3; ++c) {
            const auto [low, high] = std::minmax_element(
                entries.begin(), entries.end(), [c](const Entry& a, const Entry& b) {
                    return channel(a.colour, c) < channel(b.colour, c);
                });
            const int range = channel(high->colour, c) - channel(low->colour, c);
            if (range > best.second)
                best = {c, range};
        }
        return best;
    }

    std::uint32_t average() const
    {
        std::array<std::uint64_t, 3> sums{};
        std::uint64_t total = 0;
        for (const Entry& entry : entries) {
            for (int c = 0; c < 3; ++c)
                sums[c] += static_cast<std::uint64_t>(channel(entry.colour, c)) * entry.count;
            total += entry.count;
        }
        std::uint32_t colour = 0;
        for (int c = 0; c < 3; ++c)
            colour = (colour << 8) | static_cast<std::uint32_t>((sums[c] + total / 2) / total);
        return colour;
    }
};

std::pair<Box, Box> split(Box box)
{
    const int c = box.widest().first;
    std::sort(box.entries.begin(), box.entries.end(), [c](const Entry& a, const Entry& b) {
        return channel(a.colour, c) < channel(b.colour, c);
    });
    std::uint64_t total = 0;
    for (const Entry& entry : box.entries)
        total += entry.count;
    std::uint64_t running = 0;
    std::size_t cut = 1;
    for (; cut < box.entries.size() - 1; ++cut) {
        running += box.entries[cut - 1].count;
        if (running * 2 >= total)
            break;
    }
    Box upper{{box.entries.begin() + static_cast<std::ptrdiff_t>(cut), box.entries.end()}};
    box.entries.resize(cut);
    return {std::move(box), std::move(upper)};
}

std::vector<Box> medianCut(std::vector<Entry> colours)
{
    std::vector<Box> boxes;
    if (colours.empty())
        return boxes;
    boxes.push_back(Box{std::move(colours)});
    while (static_cast<int>(boxes.size()) < maxColours) {
        auto widest = boxes.end();
        int widestRange = 0;
        for (auto box = boxes.begin(); box != boxes.end(); ++box) {
            if (box->entries.size() < 2)
                continue;
            const int range = box->widest().second;
            if (range > widestRange) {
                widestRange = range;
                widest = box;
            }
        }
        if (widest == boxes.end())
            break;
        auto [lower, upper] = split(std::move(*widest));
        *widest = std::move(lower);
        boxes.push_back(std::move(upper));
    }
    return boxes;
}

bool opaque(QRgb pixel)
{
    return qAlpha(pixel) >= 128;
}

std::uint32_t rgbOf(QRgb pixel)
{
    return pixel & 0xFFFFFF;
}

} // namespace

IndexedImages quantize(const std::vector<QImage>& images)
{
    std::vector<QImage> argb;
    std::unordered_map<std::uint32_t, std::uint64_t> histogram;
    for (const QImage& image : images) {
        argb.push_back(image.convertToFormat(QImage::Format_ARGB32));
        const QImage& pixels = argb.back();
        for (int y = 0; y < pixels.height(); ++y) {
            const auto* row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
            for (int x = 0; x < pixels.width(); ++x)
                if (opaque(row[x]))
                    ++histogram[rgbOf(row[x])];
        }
    }

    std::vector<Entry> colours;
    colours.reserve(histogram.size());
    for (const auto& [colour, count] : histogram)
        colours.push_back({colour, count});

    IndexedImages result;
    result.palette.assign(256, 0);
    result.palette[transparentIndex] = transparentKey;
    std::unordered_map<std::uint32_t, std::uint8_t> indexOf;
    static_assert(transparentIndex == 0, "drawn colours take the indexes after the key");
    int next = transparentIndex;
    for (const Box& box : medianCut(std::move(colours))) {
        ++next;
        std::uint32_t colour = box.average();
        if (colour == transparentKey)
            colour ^= 0x010000;
        result.palette[static_cast<std::size_t>(next)] = colour;
        for (const Entry& entry : box.entries)
            indexOf[entry.colour] = static_cast<std::uint8_t>(next);
    }

    for (const QImage& pixels : argb) {
        agent::acs::Image image;
        image.width = static_cast<std::uint16_t>(pixels.width());
        image.height = static_cast<std::uint16_t>(pixels.height());
        const int stride = image.stride();
        image.pixels = QByteArray(stride * image.height, static_cast<char>(transparentIndex));
        for (int y = 0; y < pixels.height(); ++y) {
            const auto* row = reinterpret_cast<const QRgb*>(pixels.constScanLine(y));
            // Rows are stored bottom-up, as in a Windows bitmap.
            char* out = image.pixels.data() + (image.height - 1 - y) * stride;
            for (int x = 0; x < pixels.width(); ++x)
                if (opaque(row[x]))
                    out[x] = static_cast<char>(indexOf.at(rgbOf(row[x])));
        }
        result.images.push_back(std::move(image));
    }
    return result;
}

} // namespace lumo
