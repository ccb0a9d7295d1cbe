#include "agent/acs/Compressor.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

namespace agent::acs
{
namespace
{

constexpr int OffsetBits[4] = {6, 9, 12, 20};
constexpr qsizetype OffsetBase[4] = {1, 65, 577, 4673};
constexpr qsizetype MaxDistance = OffsetBase[3] + 0xFFFFE; // 0xFFFFF is the end marker
constexpr qsizetype MaxLength = 4096;
constexpr int HashBits = 16;
// Candidates tried per position: enough for runs and repeated rows, cheap on noisy data.
constexpr int MaxChainSteps = 32;

class BitSink
{
public:
    BitSink() { bytes_.append('\0'); }

    void write(std::uint32_t value, int width)
    {
        for (int i = 0; i < width; ++i) {
            current_ |= std::uint8_t(((value >> i) & 1u) << used_);
            if (++used_ == 8)
                flushByte();
        }
    }

    QByteArray finish()
    {
        write(1, 1);
        write(0b111, 3);
        write(0xFFFFF, 20);
        if (used_ > 0)
            flushByte();
        bytes_.append(6, char(0xFF));
        return bytes_;
    }

private:
    void flushByte()
    {
        bytes_.append(char(current_));
        current_ = 0;
        used_ = 0;
    }

    QByteArray bytes_;
    std::uint8_t current_ = 0;
    int used_ = 0;
};

int offsetClass(qsizetype distance)
{
    int c = 3;
    while (c > 0 && distance < OffsetBase[c])
        --c;
    return c;
}

int lengthPrefix(qsizetype length, int offsetClass)
{
    const qsizetype stored = length - 1 - (offsetClass == 3 ? 1 : 0);
    return std::bit_width(std::uint64_t(stored)) - 1;
}

int copyBits(qsizetype distance, qsizetype length)
{
    const int c = offsetClass(distance);
    return 1 + std::min(c + 1, 3) + OffsetBits[c] + 2 * lengthPrefix(length, c) + 1;
}

void writeCopy(BitSink& sink, qsizetype distance, qsizetype length)
{
    const int c = offsetClass(distance);
    sink.write(1, 1);
    sink.write((1u << c) - 1, c);
    if (c < 3)
        sink.write(0, 1);
    sink.write(std::uint32_t(distance - OffsetBase[c]), OffsetBits[c]);
    const int k = lengthPrefix(length, c);
    const qsizetype stored = length - 1 - (c == 3 ? 1 : 0);
    sink.write((1u << k) - 1, k);
    sink.write(0, 1);
    sink.write(std::uint32_t(stored - (qsizetype(1) << k)), k);
}

std::uint32_t hashAt(const std::uint8_t* p)
{
    const std::uint32_t v = p[0] | (p[1] << 8) | (p[2] << 16);
    return (v * 2654435761u) >> (32 - HashBits);
}

} // namespace

QByteArray compress(QByteArrayView input)
{
    const auto* data = reinterpret_cast<const std::uint8_t*>(input.data());
    const qsizetype size = input.size();
    std::vector<qsizetype> head(std::size_t(1) << HashBits, -1);
    std::vector<qsizetype> previous(std::size_t(size), -1);
    auto insert = [&](qsizetype at) {
        if (at + 3 > size)
            return;
        const std::uint32_t h = hashAt(data + at);
        previous[std::size_t(at)] = head[h];
        head[h] = at;
    };

    BitSink sink;
    qsizetype position = 0;
    while (position < size) {
        qsizetype bestLength = 0;
        qsizetype bestDistance = 0;
        if (position + 3 <= size) {
            const qsizetype limit = std::min(MaxLength, size - position);
            qsizetype candidate = head[hashAt(data + position)];
            for (int step = 0; step < MaxChainSteps && candidate >= 0; ++step) {
                const qsizetype distance = position - candidate;
                if (distance > MaxDistance)
                    break;
                qsizetype length = 0;
                while (length < limit && data[candidate + length] == data[position + length])
                    ++length;
                if (length > bestLength) {
                    bestLength = length;
                    bestDistance = distance;
                    if (length == limit)
                        break;
                }
                candidate = previous[std::size_t(candidate)];
            }
        }
        // Far copies need three bytes at least, and a copy must cost fewer bits than literals.
        const bool usable = bestLength >= 2 &&
                            !(offsetClass(bestDistance) == 3 && bestLength < 3) &&
                            copyBits(bestDistance, bestLength) < 9 * bestLength;
        if (usable) {
            writeCopy(sink, bestDistance, bestLength);
            for (qsizetype i = 0; i < bestLength; ++i)
                insert(position + i);
            position += bestLength;
        } else {
            sink.write(0, 1);
            sink.write(data[position], 8);
            insert(position);
            ++position;
        }
    }
    return sink.finish();
}

} // namespace agent::acs
