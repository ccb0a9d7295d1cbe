#pragma once

#include "agent/acs/ByteReader.h"
#include "agent/acs/CharacterData.h"

#include <QByteArray>
#include <QString>
#include <cstdint>

namespace agent::acs
{

// Appends the file's little-endian, packed fields; the mirror of ByteReader.
class ByteWriter
{
public:
    void u8(std::uint8_t value);
    void u16(std::uint16_t value);
    void u32(std::uint32_t value);
    void locator(Locator value);
    void guid(const Guid& value);
    void string(const QString& value);
    void bytes(QByteArrayView value);
    void dataBlock(QByteArrayView value);

    // Overwrites a locator written earlier as a placeholder, once its block is in place.
    void patchLocator(qsizetype at, Locator value);

    std::uint32_t position() const;
    // The locator of everything written since `start`.
    Locator since(std::uint32_t start) const;
    const QByteArray& data() const { return data_; }

private:
    QByteArray data_;
};

} // namespace agent::acs
