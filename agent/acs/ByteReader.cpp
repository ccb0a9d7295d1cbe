#include "agent/acs/ByteReader.h"

#include "agent/acs/FormatContext.h"

#include <cstring>

namespace agent::acs
{

ByteReader::ByteReader(QByteArrayView data, qsizetype origin) : data_(data), origin_(origin) {}

ByteReader ByteReader::at(QByteArrayView file, Locator locator)
{
    const std::uint64_t end = std::uint64_t(locator.offset) + locator.size;
    if (end > std::uint64_t(file.size()))
        failFormat(QStringLiteral("locator beyond end of file (offset %1, size %2, file %3 bytes)")
                       .arg(locator.offset)
                       .arg(locator.size)
                       .arg(file.size()));
    return ByteReader(file.sliced(locator.offset, locator.size), locator.offset);
}

const char* ByteReader::take(qsizetype count)
{
    if (count < 0 || count > remaining())
        failFormat(QStringLiteral("needs %1 bytes at offset %2, only %3 left")
                       .arg(count)
                       .arg(origin_ + position_)
                       .arg(remaining()));
    const char* start = data_.data() + position_;
    position_ += count;
    return start;
}

std::uint8_t ByteReader::u8()
{
    return std::uint8_t(*take(1));
}

std::uint16_t ByteReader::u16()
{
    const auto* p = reinterpret_cast<const std::uint8_t*>(take(2));
    return std::uint16_t(p[0] | (p[1] << 8));
}

std::int16_t ByteReader::i16()
{
    return std::int16_t(u16());
}

std::uint32_t ByteReader::u32()
{
    const auto* p = reinterpret_cast<const std::uint8_t*>(take(4));
    return std::uint32_t(p[0]) | (std::uint32_t(p[1]) << 8) | (std::uint32_t(p[2]) << 16) |
           (std::uint32_t(p[3]) << 24);
}

std::int32_t ByteReader::i32()
{
    return std::int32_t(u32());
}

Locator ByteReader::locator()
{
    Locator result;
    result.offset = u32();
    result.size = u32();
    return result;
}

Guid ByteReader::guid()
{
    Guid result;
    std::memcpy(result.bytes.data(), take(16), 16);
    return result;
}

QString ByteReader::string()
{
    const std::uint32_t length = u32();
    if (length == 0)
        return {};
    checkCount(std::uint64_t(length) + 1, 2, "string characters");
    const char* units = take(qsizetype(length) * 2);
    take(2);
    QString result(qsizetype(length), Qt::Uninitialized);
    for (qsizetype i = 0; i < qsizetype(length); ++i)
        result[i] =
            QChar(char16_t(std::uint8_t(units[2 * i]) | (std::uint8_t(units[2 * i + 1]) << 8)));
    // Unpaired surrogates would make later conversions lossy in unpredictable places; replace
    // them here, once.
    for (qsizetype i = 0; i < result.size(); ++i) {
        const QChar unit = result.at(i);
        if (unit.isHighSurrogate() && i + 1 < result.size() && result.at(i + 1).isLowSurrogate())
            ++i;
        else if (unit.isSurrogate())
            result[i] = QChar::ReplacementCharacter;
    }
    return result;
}

QByteArray ByteReader::bytes(qsizetype count)
{
    return view(count).toByteArray();
}

QByteArrayView ByteReader::view(qsizetype count)
{
    const char* start = take(count);
    return QByteArrayView(start, count);
}

QByteArray ByteReader::dataBlock()
{
    const std::uint32_t size = u32();
    checkCount(size, 1, "data block bytes");
    return bytes(qsizetype(size));
}

void ByteReader::checkCount(std::uint64_t count, qsizetype minItemBytes, const char* what) const
{
    if (count > std::uint64_t(remaining()) / std::uint64_t(minItemBytes))
        failFormat(QStringLiteral("%1 %2 cannot fit in the %3 bytes left at offset %4")
                       .arg(count)
                       .arg(QLatin1String(what))
                       .arg(remaining())
                       .arg(origin_ + position_));
}

} // namespace agent::acs
