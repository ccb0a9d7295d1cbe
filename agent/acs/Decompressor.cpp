#include "agent/acs/Decompressor.h"

#include "agent/acs/FormatContext.h"

#include <cstdint>

namespace agent::acs
{
namespace
{

constexpr int OffsetBits[4] = {6, 9, 12, 20};
constexpr std::uint32_t OffsetBase[4] = {1, 65, 577, 4673};
constexpr std::uint32_t EndMarker = 0xFFFFF;
constexpr int MaxLengthPrefix = 11;

class BitStream
{
public:
    explicit BitStream(QByteArrayView bytes)
        : next_(reinterpret_cast<const std::uint8_t*>(bytes.data())), end_(next_ + bytes.size())
    {
    }

    // Returns false when the stream holds fewer than `width` bits.
    bool read(int width, std::uint32_t& value)
    {
        if (count_ < width) {
            while (count_ <= 56 && next_ != end_) {
                buffer_ |= std::uint64_t(*next_++) << count_;
                count_ += 8;
            }
            if (count_ < width)
                return false;
        }
        value = std::uint32_t(buffer_ & ((std::uint64_t(1) << width) - 1));
        buffer_ >>= width;
        count_ -= width;
        return true;
    }

private:
    const std::uint8_t* next_;
    const std::uint8_t* end_;
    std::uint64_t buffer_ = 0;
    int count_ = 0;
};

} // namespace

QByteArray decompress(QByteArrayView input, qsizetype outputSize)
{
    if (outputSize < 0 || outputSize > input.size() * MaxExpansion)
        failFormat(QStringLiteral("%1 compressed bytes cannot hold %2 bytes")
                       .arg(input.size())
                       .arg(outputSize));
    if (input.isEmpty() || input.front() != '\0')
        failFormat(QStringLiteral("compressed data does not start with 0x00"));

    QByteArray output(outputSize, Qt::Uninitialized);
    auto* out = reinterpret_cast<std::uint8_t*>(output.data());
    qsizetype position = 0;
    BitStream bits(input.sliced(1));
    auto fail = [&](const char* why) {
        failFormat(QStringLiteral("decoded %1 of %2 bytes: %3")
                       .arg(position)
                       .arg(outputSize)
                       .arg(QLatin1String(why)));
    };
    auto read = [&](int width) {
        std::uint32_t value = 0;
        if (!bits.read(width, value))
            fail("compressed data ends without the end marker");
        return value;
    };

    while (position < outputSize) {
        if (read(1) == 0) {
            out[position++] = std::uint8_t(read(8));
            continue;
        }
        int offsetClass = 0;
        while (offsetClass < 3 && read(1) == 1)
            ++offsetClass;
        const std::uint32_t raw = read(OffsetBits[offsetClass]);
        if (offsetClass == 3 && raw == EndMarker)
            fail("end marker before the data is complete");
        const qsizetype distance = qsizetype(raw) + OffsetBase[offsetClass];

        int lengthPrefix = 0;
        while (read(1) == 1) {
            if (++lengthPrefix > MaxLengthPrefix)
                fail("length prefix longer than 11 bits");
        }
        qsizetype length = (qsizetype(1) << lengthPrefix) + read(lengthPrefix) + 1;
        if (offsetClass == 3)
            ++length;

        if (distance > position)
            fail("back-reference before the start of the data");
        // A copy running past the end is clamped: the buffer's size is authoritative.
        const qsizetype end = std::min(position + length, outputSize);
        for (; position < end; ++position)
            out[position] = out[position - distance];
    }
    return output;
}

} // namespace agent::acs
