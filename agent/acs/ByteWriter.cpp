#include "agent/acs/ByteWriter.h"

#include "agent/acs/FormatContext.h"

#include <limits>

namespace agent::acs
{

void ByteWriter::u8(std::uint8_t value)
{
    data_.append(char(value));
}

void ByteWriter::u16(std::uint16_t value)
{
    u8(std::uint8_t(value));
    u8(std::uint8_t(value >> 8));
}

void ByteWriter::u32(std::uint32_t value)
{
    u16(std::uint16_t(value));
    u16(std::uint16_t(value >> 16));
}

void ByteWriter::locator(Locator value)
{
    u32(value.offset);
    u32(value.size);
}

void ByteWriter::guid(const Guid& value)
{
    data_.append(reinterpret_cast<const char*>(value.bytes.data()), qsizetype(value.bytes.size()));
}

void ByteWriter::string(const QString& value)
{
    u32(std::uint32_t(value.size()));
    if (value.isEmpty())
        return;
    for (QChar unit : value)
        u16(unit.unicode());
    u16(0);
}

void ByteWriter::bytes(QByteArrayView value)
{
    data_.append(value);
}

void ByteWriter::dataBlock(QByteArrayView value)
{
    u32(std::uint32_t(value.size()));
    bytes(value);
}

void ByteWriter::patchLocator(qsizetype at, Locator value)
{
    for (int i = 0; i < 4; ++i) {
        data_[at + i] = char(value.offset >> (8 * i));
        data_[at + 4 + i] = char(value.size >> (8 * i));
    }
}

std::uint32_t ByteWriter::position() const
{
    if (data_.size() > qsizetype(std::numeric_limits<std::uint32_t>::max()))
        failFormat(QStringLiteral("character does not fit in a 4 GB file"));
    return std::uint32_t(data_.size());
}

Locator ByteWriter::since(std::uint32_t start) const
{
    return Locator{start, position() - start};
}

} // namespace agent::acs
