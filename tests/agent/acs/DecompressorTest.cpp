#include "agent/acs/Decompressor.h"

#include "agent/acs/AcsFile.h"
#include "agent/acs/Compressor.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace agent::acs;

// Builds compressed streams token by token, so each case states the exact tokens it holds.
class Tokens
{
public:
    Tokens& literals(int count)
    {
        for (int i = 0; i < count; ++i)
            bits(0, 1).bits(std::uint8_t(i), 8);
        return *this;
    }
    // A back-reference with an explicit offset class, length prefix k and value v.
    Tokens& copy(int offsetClass, std::uint32_t raw, int k, std::uint32_t v)
    {
        static constexpr int offsetBits[4] = {6, 9, 12, 20};
        bits(1, 1).bits((1u << offsetClass) - 1, offsetClass);
        if (offsetClass < 3)
            bits(0, 1);
        return bits(raw, offsetBits[offsetClass]).bits((1u << k) - 1, k).bits(0, 1).bits(v, k);
    }
    Tokens& end() { return bits(1, 1).bits(0b111, 3).bits(0xFFFFF, 20); }
    Tokens& bits(std::uint32_t value, int width)
    {
        for (int i = 0; i < width; ++i)
            bits_.push_back((value >> i) & 1);
        return *this;
    }
    QByteArray bytes(bool trailer = true) const
    {
        QByteArray out(1 + qsizetype(bits_.size() + 7) / 8, '\0');
        for (std::size_t i = 0; i < bits_.size(); ++i)
            out[qsizetype(1 + i / 8)] |= char(bits_[i] << (i % 8));
        return trailer ? out + QByteArray(6, char(0xFF)) : out;
    }

private:
    std::vector<int> bits_;
};

TEST(Decompressor, DecodesEachKindOfToken)
{
    // The literals 0, 1, 2, ... and a copy from their start.
    auto tail = [](int distance, int length) {
        QByteArray out;
        for (int i = 0; i < distance + length; ++i)
            out.append(i < distance ? char(i) : out.at(i - distance));
        return out;
    };
    const QByteArray region =
        QByteArray::fromHex("200000000100000000000000A8000000") + QByteArray(16, '\0');
    const std::tuple<const char*, QByteArray, QByteArray> cases[] = {
        {"the region header example",
         QByteArray::fromHex("00400004 10D09080 42ED9801 B7FFFFFF FFFFFF"), region},
        {"class 0, nearest, k=0", Tokens().literals(1).copy(0, 0, 0, 0).end().bytes(), tail(1, 2)},
        {"class 0, farthest", Tokens().literals(64).copy(0, 63, 0, 0).end().bytes(), tail(64, 2)},
        {"class 1, farthest, k=1", Tokens().literals(576).copy(1, 511, 1, 1).end().bytes(),
         tail(576, 4)},
        {"class 2, farthest", Tokens().literals(4672).copy(2, 4095, 0, 0).end().bytes(),
         tail(4672, 2)},
        {"class 3 copies one byte more", Tokens().literals(4673).copy(3, 0, 0, 0).end().bytes(),
         tail(4673, 3)},
        {"class 3, k=11", Tokens().literals(4673).copy(3, 0, 11, 2047).end().bytes(),
         tail(4673, 4097)},
        {"overlapping period 2", Tokens().literals(2).copy(0, 1, 2, 1).end().bytes(), tail(2, 6)},
        {"stops when full, without marker", Tokens().literals(3).bytes(false), tail(3, 0)},
        {"a copy past the end is clamped", Tokens().literals(1).copy(0, 0, 3, 0).end().bytes(),
         tail(1, 4)},
    };
    for (const auto& [name, input, expected] : cases)
        EXPECT_EQ(decompress(input, expected.size()), expected) << name;
}

TEST(Decompressor, RefusesCorruptInput)
{
    const std::tuple<const char*, QByteArray, qsizetype, const char*> cases[] = {
        {"empty input", QByteArray(), 0, "does not start with 0x00"},
        {"copy before the start", Tokens().literals(1).copy(0, 1, 0, 0).end().bytes(), 10,
         "decoded 1 of 10 bytes: back-reference before the start"},
        {"twelve length bits",
         Tokens().literals(1).bits(1, 1).bits(0, 1).bits(0, 6).bits(0xFFF, 12).bytes(), 100,
         "decoded 1 of 100 bytes: length prefix longer than 11 bits"},
        {"input ends", Tokens().literals(3).bytes(false), 10,
         "decoded 3 of 10 bytes: compressed data ends without the end marker"},
        {"marker too early", Tokens().literals(3).end().bytes(), 10,
         "decoded 3 of 10 bytes: end marker before the data is complete"},
        {"impossible size", QByteArray::fromHex("00FF"), 2 * MaxExpansion + 1, "cannot hold"},
        {"negative size", QByteArray::fromHex("00FF"), -1, "cannot hold"},
    };
    for (const auto& [name, input, outputSize, message] : cases) {
        try {
            decompress(input, outputSize);
            ADD_FAILURE() << name << ": no error";
        } catch (const FormatError& error) {
            EXPECT_NE(std::string(error.what()).find(message), std::string::npos)
                << name << ": " << error.what();
        }
    }
}

TEST(Compressor, RoundTripsAndShrinksRepetitiveData)
{
    QByteArray noise(20000, Qt::Uninitialized);
    QRandomGenerator(7).fillRange(reinterpret_cast<quint32*>(noise.data()), noise.size() / 4);
    const std::tuple<const char*, QByteArray, double> cases[] = {
        {"empty", QByteArray(), 100},
        {"one byte", QByteArray(1, 'q'), 100},
        {"noise", noise, 1.2},
        {"long run", QByteArray(100000, char(10)), 0.01},
        {"repeat beyond 4672 bytes", noise.left(6000).repeated(2), 0.6},
    };
    for (const auto& [name, input, maxRatio] : cases) {
        const QByteArray packed = compress(input);
        EXPECT_EQ(decompress(packed, input.size()), input) << name;
        EXPECT_LE(double(packed.size()), maxRatio * input.size() + 16) << name;
        EXPECT_TRUE(packed.endsWith(QByteArray(6, char(0xFF)))) << name;
        // The stream ends with the marker: asking for more data must hit it.
        EXPECT_THROW(decompress(packed, input.size() + 1), FormatError) << name;
    }
}
