#pragma once

#include "agent/acs/CharacterData.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>

namespace agent::acs
{

// Where a block lies in the file: an absolute offset and a size in bytes.
struct Locator {
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
};

// Reads the file's little-endian, packed fields from a bounded span. Every read checks the
// bytes left and throws FormatError instead of reading past the end.
class ByteReader
{
public:
    // `origin` is the span's offset in the file, used only to make messages point at the byte.
    explicit ByteReader(QByteArrayView data, qsizetype origin = 0);

    // The span a locator names, after checking that it lies inside the file.
    static ByteReader at(QByteArrayView file, Locator locator);

    std::uint8_t u8();
    std::uint16_t u16();
    std::int16_t i16();
    std::uint32_t u32();
    std::int32_t i32();
    Locator locator();
    Guid guid();
    // A count-prefixed UTF-16LE string; the terminator is present only when the count is not 0.
    QString string();
    QByteArray bytes(qsizetype count);
    QByteArrayView view(qsizetype count);
    // A ULONG size and that many bytes.
    QByteArray dataBlock();

    // Refuses a list count whose items, at `minItemBytes` each, cannot fit in the bytes left,
    // so a hostile count never drives a large allocation.
    void checkCount(std::uint64_t count, qsizetype minItemBytes, const char* what) const;

    qsizetype remaining() const { return data_.size() - position_; }

private:
    const char* take(qsizetype count);

    QByteArrayView data_;
    qsizetype origin_ = 0;
    qsizetype position_ = 0;
};

} // namespace agent::acs
